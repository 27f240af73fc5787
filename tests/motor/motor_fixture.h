#pragma once

#include "tests/support/fake_drive.h"
#include "tests/support/message_boxes.h"

#include "hostlib/tolvbo32/clock.h"
#include "hostlib/tolvbo32/parameter_group.h"
#include "wizard/motor/make_safe.h"
#include "wizard/motor/motor_run.h"
#include "wizard/resources/module_resources.h"

namespace krt550 {

/// A drive whose motor goes on turning for a number of looks at its state once it was told to stop.
class CTurningDrive : public FakeDrive {
public:
    CTurningDrive() : FakeDrive({Number(9906, "Service mode", 0, 0, 14), Number(801, "Status", 0, 0, 65535)}) {
        onCall = [this](const QString& call) {
            if (call == "start motor") {
                statusWord = 0;
                m_stopped = false;
            }
            if (call == "refresh" && m_stopped && --m_looksLeft < 0)
                statusWord = kStatusStopped;
        };
    }
    int looksToStand = 0;

    bool StopMotor() override {
        if (!FakeDrive::StopMotor())
            return false;
        if (!m_stopped)
            m_looksLeft = looksToStand;
        return m_stopped = true;
    }
    CParameter* Mode() { return Root().FindChildByRegister(QStringLiteral("9906")); }

private:
    bool m_stopped = false;
    int m_looksLeft = 0;
};

class MotorFixture : public testing::Test {
protected:
    MotorFixture() { BeginMotorSession(); }

    /// Has the motor turn in service mode 1.
    std::unique_ptr<CMotorRun> Turn() {
        auto run = std::make_unique<CMotorRun>(drive, drive.Mode());
        EXPECT_TRUE(run->Start(1, 0));
        drive.TakeLog();
        return run;
    }

    CModuleResources resources;
    ResourceScope resourceScope{resources};
    CSteppedClock clock;
    ClockScope clockScope{clock};
    CTurningDrive drive;
    MessageBoxes boxes;
};

} // namespace krt550
