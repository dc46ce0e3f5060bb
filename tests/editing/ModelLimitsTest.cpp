// The model-dependent limits of the editing pages: the quirks the checks hang on, not the table.

#include "params/ModelLimits.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

TEST(ModelRangeLimit, ClassesChecksAndTheRangeMargin) {
    // 1205 is the odd one of the 1xxx codes: class 100; the others are above 400.
    EXPECT_EQ(VoltageClass(1205), 100);
    EXPECT_EQ(VoltageClass(1202), 400);
    EXPECT_EQ(VoltageClass(210), 100);

    // 11-14 of a 400 V drive: 700.0 passes the page and fails at the button.
    const auto page = ModelRangeLimit(11, 14, 402, LimitCheck::Page);
    const auto button = ModelRangeLimit(11, 14, 402, LimitCheck::Button);
    ASSERT_TRUE(page && button);
    EXPECT_EQ(page->text, button->text);
    EXPECT_TRUE(WithinRange(700.0, *page));
    EXPECT_FALSE(WithinRange(700.0, *button));

    // A model without a row keeps the page's own text and the limits of its construction.
    const auto unlisted = ModelRangeLimit(2, 1, 204);
    ASSERT_TRUE(unlisted);
    EXPECT_EQ(unlisted->text, "0.1~6553.5");
    EXPECT_FLOAT_EQ(unlisted->upper, 2.6f);
    EXPECT_FALSE(ModelRangeLimit(14, 11, 204).has_value());
    EXPECT_FALSE(ModelRangeLimit(2, 3, 201).has_value());

    // The bounds themselves pass (the float limit widened, within a millionth).
    EXPECT_TRUE(WithinRange(3.8, 0.2f, 3.8f));
    EXPECT_TRUE(WithinRange(0.2, 0.2f, 3.8f));
    EXPECT_FALSE(WithinRange(3.81, 0.2f, 3.8f));
    EXPECT_FALSE(WithinRange(0.19, 0.2f, 3.8f));
}

}  // namespace
}  // namespace quillon
