#pragma once

#include <QtGlobal>

#include <coroutine>
#include <exception>
#include <utility>

namespace krt550 {

/// Numbers of the diagnosis' value list with which a run ends.
namespace diagnosis {
inline constexpr quint16 kNone = 0;
inline constexpr quint16 kMains = 1;
inline constexpr quint16 kDriveRunning = 2;
inline constexpr quint16 kStartWithdrawn = 3;
inline constexpr quint16 kOtherPlace = 4;
inline constexpr quint16 kStopped = 5;
inline constexpr quint16 kTripped = 6;
inline constexpr quint16 kTooLong = 7;
inline constexpr quint16 kNamePlate = 8;
inline constexpr quint16 kContactor = 9;
inline constexpr quint16 kEmergencyStop = 10;
inline constexpr quint16 kFieldNotReached = 20;
inline constexpr quint16 kFieldDoesNotFollow = 21;
inline constexpr quint16 kNoExciter = 22;
inline constexpr quint16 kFieldResistance = 23;
inline constexpr quint16 kCannotReverse = 24;
inline constexpr quint16 kReversalTooSlow = 25;
inline constexpr quint16 kFieldLossLevel = 26;
inline constexpr quint16 kNoWeakening = 27;
inline constexpr quint16 kFluxCurve = 28;
inline constexpr quint16 kFieldTooSlow = 29;
inline constexpr quint16 kTurned = 40;
inline constexpr quint16 kNoCurrent = 41;
inline constexpr quint16 kNoResistance = 42;
inline constexpr quint16 kNoInductance = 43;
inline constexpr quint16 kLimitTooLow = 44;
inline constexpr quint16 kNotContinuous = 45;
inline constexpr quint16 kCurrentDoesNotFollow = 46;
inline constexpr quint16 kInductanceTooLarge = 47;
inline constexpr quint16 kResistanceTooLarge = 48;
inline constexpr quint16 kDoesNotTurn = 60;
inline constexpr quint16 kSpeedNotReached = 61;
inline constexpr quint16 kSpeedLimits = 62;
inline constexpr quint16 kLoadNotSteady = 63;
inline constexpr quint16 kWrongDirection = 64;
inline constexpr quint16 kInertiaTooLarge = 65;
inline constexpr quint16 kEncoderReversed = 70;
inline constexpr quint16 kEncoderMissing = 71;
inline constexpr quint16 kEncoderPulses = 72;
inline constexpr quint16 kTachoReversed = 73;
inline constexpr quint16 kTachoMissing = 74;
inline constexpr quint16 kTachoScaling = 75;
inline constexpr quint16 kTachoVoltage = 76;
inline constexpr quint16 kNoFeedback = 77;
inline constexpr quint16 kTachoNoisy = 78;
inline constexpr quint16 kOvercurrent = 80;
inline constexpr quint16 kOvervoltage = 81;
inline constexpr quint16 kFieldLost = 82;
inline constexpr quint16 kOverspeed = 83;
inline constexpr quint16 kOvertemperature = 84;
inline constexpr quint16 kFeedbackLost = 85;
inline constexpr quint16 kToolSilent = 86;
inline constexpr quint16 kExternal = 87;
inline constexpr quint16 kCurrentRise = 88;
inline constexpr quint16 kFieldOvercurrent = 89;
inline constexpr quint16 kEarth = 90;
inline constexpr quint16 kStalled = 91;
inline constexpr quint16 kMotorFan = 92;
inline constexpr quint16 kConverterFan = 93;
inline constexpr quint16 kPhaseMissing = 94;
inline constexpr quint16 kPhaseOrder = 95;
inline constexpr quint16 kRipple = 96;
} // namespace diagnosis

/// A coroutine that lives in the drive's time: `co_yield seconds` lets that time pass (0: one step), `co_return` ends
/// it with a number of the diagnosis, 0 for success. `co_await` of another run carries that one out and gives its
/// number.
class CServiceRun {
public:
    /// What `co_await` waits with.
    class CPart;

    struct promise_type {
        double wait = 0;
        quint16 result = 0;
        CServiceRun* part = nullptr; ///< that is being carried out

        CServiceRun get_return_object() {
            return CServiceRun(std::coroutine_handle<promise_type>::from_promise(*this));
        }
        std::suspend_always initial_suspend() noexcept { return {}; }
        std::suspend_always final_suspend() noexcept { return {}; }
        std::suspend_always yield_value(double seconds) noexcept {
            wait = seconds;
            return {};
        }
        void return_value(quint16 code) noexcept { result = code; }
        void unhandled_exception() { std::terminate(); }
        CPart await_transform(CServiceRun&& run);
    };

    CServiceRun() = default;
    CServiceRun(CServiceRun&& other) noexcept : m_handle(std::exchange(other.m_handle, nullptr)) {}
    CServiceRun& operator=(CServiceRun&& other) noexcept {
        std::swap(m_handle, other.m_handle);
        return *this;
    }
    ~CServiceRun() {
        if (m_handle)
            m_handle.destroy();
    }

    bool IsDone() const { return !m_handle || m_handle.done(); }
    quint16 GetResult() const { return m_handle ? m_handle.promise().result : quint16{0}; }
    /// Lets `seconds` pass.
    void Step(double seconds) {
        if (IsDone())
            return;
        if (CServiceRun* part = m_handle.promise().part) {
            part->Step(seconds);
            if (!part->IsDone())
                return;
            m_handle.promise().part = nullptr;
            m_handle.resume();
            return;
        }
        m_handle.promise().wait -= seconds;
        if (m_handle.promise().wait <= seconds / 2)
            m_handle.resume();
    }

private:
    explicit CServiceRun(std::coroutine_handle<promise_type> handle) : m_handle(handle) {}

    std::coroutine_handle<promise_type> m_handle;
};

class CServiceRun::CPart {
public:
    explicit CPart(CServiceRun&& run) : m_run(std::move(run)) {}
    bool await_ready() const noexcept { return false; }
    void await_suspend(std::coroutine_handle<promise_type> whole) noexcept { whole.promise().part = &m_run; }
    quint16 await_resume() const noexcept { return m_run.GetResult(); }

private:
    CServiceRun m_run;
};

inline CServiceRun::CPart CServiceRun::promise_type::await_transform(CServiceRun&& run) {
    return CPart(std::move(run));
}

} // namespace krt550
