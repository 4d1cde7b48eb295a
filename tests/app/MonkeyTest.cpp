#include "Monkey.h"

/** TAVIMO_MONKEY_ACTIONS and TAVIMO_MONKEY_SEED make it longer, or repeat one run; see scripts/soak. */
TEST(MonkeyTest, NoWordIsLostAndNothingAnsweredUnseen)
{
    const int actions = qEnvironmentVariableIntValue("TAVIMO_MONKEY_ACTIONS");
    const int seed = qEnvironmentVariableIntValue("TAVIMO_MONKEY_SEED");
    constexpr int usualSeeds[] = {1, 2, 3};
    if (seed > 0) {
        Monkey(quint32(seed)).act(actions > 0 ? actions : 1000);
        return;
    }
    for (const int usual : usualSeeds) {
        SCOPED_TRACE(usual);
        Monkey(quint32(usual)).act(actions > 0 ? actions : 1000);
    }
}
