#include "results/xlsx/xlsx_writer.h"
#include "support/documents.h"

#include <gtest/gtest.h>

namespace qor {
namespace {

TEST(Xlsx, TheSameResultIsTheSameFileWithEveryRunInIt) {
    ResultDocument document = RandomDocument(5, ResultMethod::Sweep, 200);
    document.comment = "broken \xFF and \x01 stay out";
    document.limit = -90.0f;
    std::string one;
    std::string again;
    ASSERT_TRUE(WriteXlsx(document, one));
    ASSERT_TRUE(WriteXlsx(document, again));
    EXPECT_TRUE(one == again);
    EXPECT_EQ(one.substr(0, 2), "PK");
    document.runs.push_back(document.runs.front());
    ASSERT_TRUE(WriteXlsx(document, again));
    EXPECT_GT(again.size(), one.size() + 1000);
    document.interBand = "DCS 1800";
    EXPECT_TRUE(WriteXlsx(document, again)) << "between bands too";

    document.runs.assign(1, {});
    document.runs[0].up.resize(1048576, {890, -100});
    EXPECT_EQ(WriteXlsx(document, one).Text(), "The result is too long for this form.");
}

} // namespace
} // namespace qor
