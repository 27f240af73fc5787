#include "wizard/resources/string_table.h"

#include <algorithm>
#include <iterator>

namespace krt550 {
namespace {

struct Entry {
    int number;
    const char16_t* text;
};

// In ascending order of the numbers.
constexpr Entry kStrings[] = {
    {1, u"KRT 550 Wizard"},
    {2, u"Assistant menu"},
    {3, u"Reset faulted drive"},
    {4, u"For parameter REPLACE given value was invalid.\nPlease input valid value."},
    {5, u"Parameter REPLACE not found from drive.\n\nUnable to use the specified parameter."},
    {8, u"Value entered for parameter REPLACE_PARAM is invalid for unsigned 8-bit data (value entered was "
        u"REPLACE_VALUE)."},
    {9,
     u"Value entered for parameter REPLACE_PARAM is invalid for signed 16-bit data (value entered was REPLACE_VALUE)."},
    {10, u"Value entered for parameter REPLACE_PARAM is invalid for unsigned 16-bit data (value entered was "
         u"REPLACE_VALUE)."},
    {13, u"1. Name plate data"},
    {14, u"Advanced"},
    {15, u"Basic"},
    {16, u"Basic commissioning steps done:"},
    {17, u"Assistants"},
    {18, u"Welcome to the KRT550 assistant"},
    {19, u"Start basic commissioning (1 to 7):"},
    {20, u"Start"},
    {21, u"or choose specific assistants"},
    {22, u"I/O assistant"},
    {23, u"Protection and limit assistant"},
    {24, u"E-stop / el. disconnect assistant"},
    {25, u"Field exciter assistant"},
    {26, u"Master-follower / drive to drive assistant"},
    {27, u"12-pulse assistant"},
    {28, u"Serial communication assistant"},
    {29, u"Configurable assistant"},
    {30, u"Help"},
    {31, u"Field reversal assistant"},
    {32, u"Apply"},
    {33, u"Next >"},
    {34, u"< Back"},
    {35, u"Close"},
    {36, u"Cancel"},
    {37, u"2. Macro assistant"},
    {38, u"3. Autotuning field current controller"},
    {39, u"4. Autotuning armature current controller"},
    {40, u"5. Speed feedback assistant"},
    {41, u"6. Autotuning speed controller"},
    {42, u"7. Field weakening assistant"},
    {43, u"Finish"},
    {44, u"Auto"},
    {45, u"Set general parameters"},
    {46, u"Set motor nameplate data"},
    {47, u"Tacho manual"},
    {49, u"Local or Remote"},
    {50, u"Start drive"},
    {51, u"Stop drive"},
    {52, u"Close contactor"},
    {53, u"Open contactor"},
    {54, u"Set new reference"},
    {55, u"Step Up"},
    {56, u"Step Down"},
    {59, u"Fine tuning procedure finished"},
    {60,
     u"Attention:\nThe motor will run according to the setting of 5003\nMotor 1 speed feedback selector!\nMake sure "
     u"everything is safe!"},
    {220, u"Protections"},
    {222, u"Set mains / supply data"},
    {223, u"Actual"},
    {224, u"Unit"},
    {225, u"Min"},
    {227, u"Max"},
    {228, u"Other"},
    {229, u"Parameter REPLACE valuelist not found from drive.\n\nUnable to use the specified parameter."},
    {230, u"Analogue tacho\n\n"},
    {232, u"Pulse encoder\n\n"},
    {233, u"EMF\n\n"},
    {234, u"Speed feedback was adapted to:\n"},
    {235, u"It is recommended to fine tune the tacho.\nDo You want to fine tune the tacho? "},
    {237, u"Other"},
    {240, u"Autotuning armature current controller successful"},
    {243, u"Autotuning failed:\nREPLACE\nFix the problem and try again\n"},
    {245, u"Autotuning field current controller successful"},
    {249, u"Autotuning speed controller successful"},
    {256, u"Autotuning field weakening assistant successful"},
    {264, u"Protections and limit assistant"},
    {271, u"E-stop / el. disconnect assistant"},
    {274, u"I/O assistant"},
    {278, u"Field reversal assistant"},
    {282, u"Field exciter assistant"},
    {286, u"Master-follower / drive to drive assistant"},
    {292, u"12-pulse assistant"},
    {298, u"Serial communication assistant"},
    {303, u"Configurable assistant"},
    {308, u"Autotuning field reversal successful"},
    {314, u"OK"},
    {320, u"Fault"},
    {325, u"Mail box"},
    {335, u"Transmit value"},
    {343, u"Receive value"},
    {351, u"Other can not be selected from dropdown list. Use advanced view to set other value."},
    {352, u"Protections"},
    {353, u"Common"},
    {354, u"Fieldbus parameters"},
    {355, u"Datasets (from PLC to KRT550)"},
    {356, u"Datasets (from KRT550 to PLC)"},
    {358, u"Error while updating parameters\n Stopping parameter update."},
    {359, u"Unable to stop parameter update."},
    {360, u"Parameters that should be updated did not found\nCan not start parameter update!"},
    {362, u"601 Fault time"},
    {363, u"114 Armature voltage"},
    {364, u"112 Mains voltage"},
    {365, u"116 Armature current"},
    {366, u"104 Speed actual"},
    {367, u"217 Speed reference"},
    {369, u"Attention:\nThe motor might turn during autotuning!\nMake sure everything is safe!\n"},
    {370, u"Attention:\nThe motor will run up to base speed during test!\nMake sure everything is safe!"},
    {371, u"Parameter 4.24 value REPLACE\nAborting Test"},
    {372,
     u"Fine tuning procedure:\n1.\tMeasure motor speed with hand held tacho and write the value into 5012 Motor\n\t1 "
     u"tacho adjust (main window).\n2.\tPress Apply and check Speed actual against value written into 5012 Motor "
     u"1\n\ttacho adjust (main window).\n3.\tFinish the test by pressing Finish or Next (main window).\nAbort the "
     u"test by pressing Back or Cancel (main window).\n\nGo back to main window:"},
    {373, u"Fields missing from fault information."},
    {374, u"Short fault description received."},
    {375, u"Multiple connections"},
    {566, u"130 Motor 1 field current"},
    {567, u"704 Used main control word"},
    {568, u"911 Diagnosis"},
    {569, u"Fault or alarm code"},
    {570, u"601 Fault days"},
    {571, u"REPLACE"},
    {572, u"Set general parameters"},
    {573, u"Set filters"},
    {574, u"Start of autotuning denied.\nDrive is controlled by another source!"},
    {1063, u"Set limits"},
    // From here on the module's own.
    {2001,
     u"The motor is running down.\n\nThe drive has taken the stop command and does not report standstill yet. If the "
     u"motor does not slow down, use the E-stop."},
    {2002, u"THE DRIVE DOES NOT CONFIRM THE STOP.\n\nUSE THE E-STOP.\n\nThe stop command is being repeated."},
    {2003, u"The drive has not opened its main contactor.\nSwitch it off before anybody touches motor or cabinet."},
    {2004, u"The drive has not taken local control back."},
    {2005, u"Values that were typed have not been applied.\nClose the wizard without them?"},
    {2006, u"Local control was lost: another control place has taken the drive."},
    {2007, u"The drive did not take the speed reference \"REPLACE\"."},
    {2008, u"The drive did not close its main contactor."},
    {2009, u"The drive did not start the motor."},
    {2010, u"The drive did not give local control."},
    {2011,
     u"The macro was not loaded: the drive is switched on, or the motor may turn.\n\nStop the motor, take the on and "
     u"run commands away from terminals and fieldbus, and apply again."},
};

static_assert(std::is_sorted(std::begin(kStrings), std::end(kStrings),
                             [](const Entry& a, const Entry& b) { return a.number < b.number; }));

} // namespace

std::optional<QString> StringTableText(int number) {
    const auto* entry = std::lower_bound(std::begin(kStrings), std::end(kStrings), number,
                                         [](const Entry& e, int wanted) { return e.number < wanted; });
    if (entry == std::end(kStrings) || entry->number != number)
        return std::nullopt;
    return QString::fromUtf16(entry->text);
}

} // namespace krt550
