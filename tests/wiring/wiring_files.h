#pragma once

#include "tests/support/fake_drive.h"
#include "tests/support/message_boxes.h"
#include "tests/support/wizard_files.h"
#include "wizard/platform/resources.h"
#include "wizard/resources/module_resources.h"
#include "wizard/texts/wizard_directory.h"

namespace krt550 {

/// Texts that the tests of this room count on. "Twin" is the name of two functions.
inline const WizardFiles& WiringFiles() {
    static const WizardFiles files("DI\t1001\t1\t2\t\t\t\t\t\t8\t0\tStart\n"
                                   "DI\t1002\t1\t2\t\t\t\t\t\t8\t0\tTwin\n"
                                   "DI\t1003\t1\t2\t\t\t\t\t\t8\t9\tTwin\n"
                                   "DI\t1004\t1\t2\t\t\t\t\t\t8\t65535\tAlways\n"
                                   "DI\t1004\t11\t12\t\t\t\t\t\t18\t65535\tAlways inverted\n"
                                   "AI\t1101\t201\t1\t2\t3\t\t0\tReference\n"
                                   "AI\t1102\t999\t1\t2\t\t4\t0\tLimit\n"
                                   "AI\t1003\t\t5\t6\t\t\t0\tOn by voltage\n"
                                   "AO\t104\tSpeed\nAO\t0\tNothing\nDO\t801\t3\tFault\n"
                                   "VANRECEIVE\t0\tNone\nVANRECEIVE\t7\tWord\n");
    return files;
}

class WiringDrive : public FakeDrive {
public:
    WiringDrive() : FakeDrive(Parameters()) {}
    QStringList TakeWrites() { return TakeLog(QStringList{"write"}); }

private:
    static std::vector<ParameterDescription> Parameters() {
        std::vector<ParameterDescription> all = {Number(201, "reference", 0, 0, 0),
                                                 Number(1501, "AO index", 0, -999, 999)};
        for (const quint16 selector :
             {quint16{1001}, quint16{1002}, quint16{1003}, quint16{1004}, quint16{1101}, quint16{1102}})
            all.push_back(Number(selector, "selector", 0, 0, 20));
        return all;
    }
};

} // namespace krt550
