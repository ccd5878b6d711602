#include "platform/forms/twips.h"

#include <gtest/gtest.h>

#include <QWidget>

#include "platform/forms/window_update.h"

namespace {

// To pixels rounds to the nearest pixel; back to twips is exact.
TEST(Twips, ToPixelsAndBack) {
    const std::pair<int, int> cases[] = {{0, 0},     {15, 1},     {7, 0},      {8, 1},       {22, 1},   {23, 2},
                                         {750, 50},  {1740, 116}, {2590, 173}, {13650, 910}, {-15, -1}, {-8, -1}};
    for (const auto& [twips, pixels] : cases) EXPECT_EQ(forms::twips(twips), pixels) << twips;
    for (const auto& [pixels, twips] : {std::pair{0, 0}, {1, 15}, {116, 1740}, {-2, -30}}) EXPECT_EQ(forms::toTwips(pixels), twips);
}

TEST(LockWindowUpdate, HoldsOneWindowUntilReleased) {
    QWidget first, second;
    EXPECT_TRUE(forms::LockWindowUpdate(&first));
    EXPECT_FALSE(first.updatesEnabled());
    EXPECT_FALSE(forms::LockWindowUpdate(&second));   // one window at a time
    EXPECT_TRUE(second.updatesEnabled());
    EXPECT_TRUE(forms::LockWindowUpdate(nullptr));
    EXPECT_TRUE(first.updatesEnabled());
    EXPECT_FALSE(forms::LockWindowUpdate(nullptr));   // nothing held
    // A window that held its repaints before keeps holding them after the release.
    second.setUpdatesEnabled(false);
    EXPECT_TRUE(forms::LockWindowUpdate(&second));
    EXPECT_TRUE(forms::LockWindowUpdate(nullptr));
    EXPECT_FALSE(second.updatesEnabled());
}

}  // namespace
