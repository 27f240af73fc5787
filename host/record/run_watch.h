#pragma once

#include "host/record/trace_sampler.h"
#include "hostlib/tolvbo32/clock.h"

class QByteArray;

namespace krt550 {

class CHostDrive;

inline constexpr quint16 kServiceModeRegister = 9906;

/// Sees from the calls when a run of the motor begins and ends, takes its trace and notes what came of it. A run begins
/// with a service mode or with a start. It ends when the stop has been taken and the motor stands, when local control
/// is given back, or when its mode is over before anything was started.
///
/// It asks the drive only from the event loop, and not at all while a stop waits to be taken.
class CRunWatch {
public:
    /// All borrowed; `drive` and `link` are those behind the decorators.
    CRunWatch(CHostDrive& drive, CParameterLink& link, CDriveStory& story, CRecorder& recorder);

    void OnModeWritten(quint16 mode, bool succeeded);
    void OnModeRead(quint16 mode);
    void OnStart(bool succeeded);
    void OnStop(bool succeeded);
    void OnStatus(quint32 status);
    void OnRelease(bool succeeded);
    void OnFaultRecord(const QByteArray& record);

    /// The session ends: what is left to be noted is noted at once.
    void End();

private:
    enum class EndedBy { Nobody, Drive, Tool };
    struct Run {
        qint64 number; ///< of its event
        quint16 mode;
        EndedBy endedBy = EndedBy::Nobody;
        bool hasStarted = false;
        bool stopTaken = false;
    };

    void Begin(quint16 mode);
    void Over();
    void Tick();
    void Sample();
    void Conclude(bool mayAsk);
    void FetchFault();
    bool Read(quint16 reg);
    QString DiagnosisText() const;

    CHostDrive& m_drive;
    CParameterLink& m_link;
    CDriveStory& m_story;
    CRecorder& m_recorder;
    CTraceSampler m_sampler;
    CClockTimer m_timer;
    std::optional<Run> m_run;
    std::optional<Run> m_over; ///< a run whose outcome is still to be noted
    bool m_mayAsk = true;      ///< the drive has taken the last stop, and answered since
    bool m_hasNewFault = false;
    QByteArray m_lastRecord;
};

} // namespace krt550
