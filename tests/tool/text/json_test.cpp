// JSON as it is written.

#include "text/json.h"

#include <gtest/gtest.h>

namespace {

TEST(Json, IsIndentedAndNamesStayReadable)
{
    EXPECT_EQ(tool::dumped({{"parcel", "Grünfläche"}, {"points", {1.5}}}),
              "{\n  \"parcel\": \"Grünfläche\",\n  \"points\": [\n    1.5\n  ]\n}\n");
    EXPECT_EQ(tool::dumped_in_list({{"parcel", "Łódź"}}), "    {\n      \"parcel\": \"Łódź\"\n    }");
}

TEST(Json, WhatIsNotUtf8IsReplaced)
{
    EXPECT_EQ(tool::dumped("Gr\xfcn"), "\"Gr\xef\xbf\xbdn\"\n");
}

}  // namespace
