// The model-dependent limits of the editing pages and the voltage class.

#include "editing/ModelLimits.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

void ExpectLimit(const std::optional<RangeLimit>& limit, const char* text, float lower,
                 float upper) {
    ASSERT_TRUE(limit.has_value());
    EXPECT_EQ(limit->text, text);
    EXPECT_FLOAT_EQ(limit->lower, lower);
    EXPECT_FLOAT_EQ(limit->upper, upper);
}

TEST(VoltageClass, ByCodeWith1205AsTheOddOneOut) {
    EXPECT_EQ(VoltageClass(1205), 100);
    EXPECT_EQ(VoltageClass(101), 100);
    EXPECT_EQ(VoltageClass(203), 100);
    EXPECT_EQ(VoltageClass(210), 100);
    EXPECT_EQ(VoltageClass(401), 400);
    // The other 1xxx codes are above 400 and land in class 400.
    for (int code : {1102, 1105, 1202, 1207}) EXPECT_EQ(VoltageClass(code), 400) << code;
}

TEST(ModelRangeLimit, RowsThatFollowTheVoltageClass) {
    ExpectLimit(ModelRangeLimit(1, 1, 1205), "170.0~264.0", 170.0f, 264.0f);
    ExpectLimit(ModelRangeLimit(1, 1, 1202), "323.0~528.0", 323.0f, 528.0f);
    ExpectLimit(ModelRangeLimit(1, 1, 403, LimitCheck::EditFilter), "323.0~528.0", 323.0f, 528.0f);
    ExpectLimit(ModelRangeLimit(8, 4, 201), "350.0~390.0", 350.0f, 390.0f);
    ExpectLimit(ModelRangeLimit(8, 4, 402), "700.0~780.0", 700.0f, 780.0f);

    // 11-14 of a 400 V drive: 700.0 passes the page and fails at the button.
    const auto page = ModelRangeLimit(11, 14, 402, LimitCheck::Page);
    const auto button = ModelRangeLimit(11, 14, 402, LimitCheck::Button);
    ExpectLimit(page, "600.0~800.0", 600.0f, 800.0f);
    ExpectLimit(button, "600.0~800.0", 300.0f, 400.0f);
    EXPECT_TRUE(WithinRange(700.0, *page));
    EXPECT_FALSE(WithinRange(700.0, *button));
}

TEST(ModelRangeLimit, BrakeLevelsByCodeWith415OnlyInThePageCheckOf0321) {
    ExpectLimit(ModelRangeLimit(3, 20, 405), "500.0~800.0", 500.0f, 800.0f);
    ExpectLimit(ModelRangeLimit(3, 20, 408), "240.0~400.0", 240.0f, 400.0f);
    ExpectLimit(ModelRangeLimit(3, 21, 410, LimitCheck::Page), "240.0~400.0", 500.0f, 800.0f);
    ExpectLimit(ModelRangeLimit(3, 21, 410, LimitCheck::Button), "240.0~400.0", 240.0f, 400.0f);
    ExpectLimit(ModelRangeLimit(3, 21, 401, LimitCheck::Button), "500.0~800.0", 500.0f, 800.0f);
    ExpectLimit(ModelRangeLimit(3, 21, 416, LimitCheck::Page), "240.0~400.0", 240.0f, 400.0f);
}

TEST(ModelRangeLimit, RatedDataOfTheMotorPage) {
    // A new project before a model is chosen has code 1205.
    ExpectLimit(ModelRangeLimit(2, 1, 1205), "0.2~3.8", 0.2f, 3.8f);
    ExpectLimit(ModelRangeLimit(2, 5, 203), "0.2~4.4", 0.2f, 4.4f);
    // 405 writes its lower limit without a decimal.
    ExpectLimit(ModelRangeLimit(2, 0, 405), "0~13.5", 0.0f, 13.5f);
    ExpectLimit(ModelRangeLimit(2, 4, 405), "323.0~528.0", 323.0f, 528.0f);

    // 204 has no row: class 100, the page's own texts and the limits of its construction.
    EXPECT_EQ(VoltageClass(204), 100);
    ExpectLimit(ModelRangeLimit(2, 0, 204), "0.0~6553.5", 0.0f, 2.5f);
    ExpectLimit(ModelRangeLimit(2, 1, 204), "0.1~6553.5", 0.2f, 2.6f);
    ExpectLimit(ModelRangeLimit(2, 5, 204), "0.0~22.0", 0.1f, 0.8f);
    ExpectLimit(ModelRangeLimit(2, 4, 204), "170.0~264.0", 170.0f, 264.0f);
    // 404 lies in the 400 V range for 02-04 only.
    ExpectLimit(ModelRangeLimit(2, 4, 404), "323.0~528.0", 323.0f, 528.0f);
    ExpectLimit(ModelRangeLimit(2, 1, 404), "0.1~6553.5", 0.2f, 2.6f);
    EXPECT_FALSE(ModelRangeLimit(2, 3, 201).has_value());

    // F11 follows 02-01 for the eight models of the table, and keeps its own range otherwise.
    ExpectLimit(ModelRangeLimit(14, 11, 402), "0.3~6.0", 0.3f, 6.0f);
    EXPECT_FALSE(ModelRangeLimit(14, 11, 204).has_value());
    EXPECT_FALSE(ModelRangeLimit(0, 11, 201).has_value());
}

TEST(ModelRangeLimit, TheRangeMargin) {
    EXPECT_TRUE(WithinRange(3.8, 0.2f, 3.8f));
    EXPECT_TRUE(WithinRange(0.2, 0.2f, 3.8f));
    EXPECT_FALSE(WithinRange(3.81, 0.2f, 3.8f));
    EXPECT_FALSE(WithinRange(0.19, 0.2f, 3.8f));
}

}  // namespace
}  // namespace quillon
