#include "frame/NamesText.h"
#include "tests/db/DbTest.h"

namespace {

class NamesInQuestions : public DbTest {
protected:
    static std::string hit(const std::vector<HitRecord>& records) {
        return hitText(records, "devices.count").toUTF8();
    }
};

TEST_F(NamesInQuestions, SayWhomAnActionReaches) {
    EXPECT_EQ(hit({}), "");
    EXPECT_EQ(hit({{"A", ""}}), "A");
    EXPECT_EQ(hit({{"A", "Online"}}), "A: Online");
    EXPECT_EQ(hit({{"A", "Online"}, {"B", "In Use"}, {"C", "In Use"}}),
              "3 devices: A, B, C\nIn Use: 2, Online: 1");
    EXPECT_EQ(hit({{"A", ""}, {"B", ""}, {"C", ""}, {"D", ""}, {"E", "Offline"}}),
              "5 devices: A, B, C and 2 more\nOffline: 1");
}

} // namespace
