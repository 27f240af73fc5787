#include "host/hands/hands.h"
#include "host/hands/input.h"

extern "C" Q_DECL_EXPORT const krt550::Hands* krt550_hands() {
    using namespace krt550;
    static constexpr Hands kHands{.click = Click,
                                  .typeAndLeave = TypeAndLeave,
                                  .pickEntry = PickEntry,
                                  .pickFromMenu = PickFromMenu,
                                  .clickTab = ClickTab,
                                  .pressKey = PressKey};
    return &kHands;
}
