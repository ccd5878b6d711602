#include "platform/forms/twips.h"

#include <gtest/gtest.h>

#include <QWidget>

#include "platform/forms/window_update.h"
#include "support/case_name.h"

namespace {

struct Conversion {
    const char* name;
    int from, to;
};


// To pixels rounds to the nearest pixel, halves away from zero.
class TwipsToPixels : public ::testing::TestWithParam<Conversion> {};

TEST_P(TwipsToPixels, RoundToTheNearestPixel) { EXPECT_EQ(forms::twips(GetParam().from), GetParam().to); }

INSTANTIATE_TEST_SUITE_P(Twips, TwipsToPixels,
                         ::testing::Values(Conversion{"Zero", 0, 0}, Conversion{"OnePixel", 15, 1},
                                           Conversion{"JustUnderHalfDown", 7, 0}, Conversion{"JustOverHalfUp", 8, 1},
                                           Conversion{"OnePixelAndAHalfLess", 22, 1},
                                           Conversion{"OnePixelAndAHalfMore", 23, 2}, Conversion{"ToolbarHeight", 750, 50},
                                           Conversion{"FrameTop", 1740, 116}, Conversion{"BannerLeft", 2590, 173},
                                           Conversion{"WindowWidth", 13650, 910}, Conversion{"MinusOnePixel", -15, -1},
                                           Conversion{"MinusHalfAwayFromZero", -8, -1}),
                         CaseName());

// Back to twips is exact.
class PixelsToTwips : public ::testing::TestWithParam<Conversion> {};

TEST_P(PixelsToTwips, AreExact) { EXPECT_EQ(forms::toTwips(GetParam().from), GetParam().to); }

INSTANTIATE_TEST_SUITE_P(Twips, PixelsToTwips,
                         ::testing::Values(Conversion{"Zero", 0, 0}, Conversion{"OnePixel", 1, 15},
                                           Conversion{"FrameTop", 116, 1740}, Conversion{"Negative", -2, -30}),
                         CaseName());

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
