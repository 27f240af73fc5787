// The speed feedback test and the fine tuning of a tacho.
#include "tests/drive/scripted_drive.h"

namespace krt550::test {
namespace {

// 9.11 says: 71 the encoder is missing, 70 reversed, 72 of other pulses; 74 the tacho is missing, 73 reversed, 75 and
// 76 of another voltage. A test that fails goes past 80 % too, so that nobody waits for it in vain; stopping it is no
// failure.
const Script kShafts[] = {
    {"Encoder", "feedback=encoder tests 911=0 5003=1 425=0 turns | stops 911=0"},
    {"EncoderChosenBefore", "feedback=encoder 5003=1 tests 911=0 5003=1 425=0 turns | stops 911=0"},
    {"EncoderBroken", "feedback=encoder 5003=1 feedback-broken tests 911=71 5003=1 425=0 | stops 911=71"},
    {"EncoderReversed", "feedback=encoder feedback-reversed tests 911=70 5003=0 425=0 | stops 911=70"},
    {"EncoderPulses", "feedback=encoder encoder-pulses:2500 tests 911=72 5003=0 425=0 | stops 911=72"},
    {"Tacho", "feedback=tacho tests 911=0 5003=2 425=3 turns | stops 911=0"},
    {"TachoInPlaceOfAnEncoder", "feedback=tacho 5003=1 tests 911=0 5003=2 425=3 turns | stops 911=0"},
    {"TachoBroken", "feedback=tacho 5003=2 feedback-broken tests 911=74 5003=2 425=0 | stops 911=74"},
    {"TachoReversed", "feedback=tacho feedback-reversed tests 911=73 5003=0 425=0 | stops 911=73"},
    {"TachoScaling", "feedback=tacho tacho-voltage:100 tests 911=75 5003=0 425=0 | stops 911=75"},
    {"TachoVoltage", "feedback=tacho tacho-voltage:200 tests 911=76 5003=0 425=0 | stops 911=76"},
    {"None", "feedback=none tests 911=0 5003=0 425=0 turns | stops 911=0"},
    {"NoneButChosen", "feedback=none 5003=1 tests 911=71 5003=1 425=0 | stops 911=71"},
};

// That it comes to what a hand-held tacho shows is seen in a play.
const Script kTachoTuning[] = {
    {"RefusesWhatNoTachoShowsAndEndsWithTheStop",
     "feedback=tacho 5003=2 9906=14 local=on close start 30s : 9906=14 424<101 | !5012=0 0s : why=tacho_shows | "
     "!5012=-1750 0s : why=tacho_shows | !5012=400 0s : why=tacho_shows | !5012=4000 0s : why=tacho_shows | "
     "stops 911=0 | 5012=0"},              // without the tuning it is but a number
    {"GoesPastAHundredWhenTheDriveEndsIt", // a person takes the time that is needed
     "feedback=tacho 5003=2 9906=14 local=on close start 150s : 9906=14 424<101 | field-broken 2s : 424>100 911=82"},
};

INSTANTIATE_TEST_SUITE_P(TachoTuning, Scripts, testing::ValuesIn(kTachoTuning), NameOf);
INSTANTIATE_TEST_SUITE_P(Shafts, Scripts, testing::ValuesIn(kShafts), NameOf);

} // namespace
} // namespace krt550::test
