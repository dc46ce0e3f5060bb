// The model table and the model description file.

#include "params/ModelSpec.h"
#include "params/ModelTable.h"

#include <QSet>
#include <gtest/gtest.h>

using namespace quillon;

TEST(ModelTable, EveryCodeFollowsItsCapacityAndIsUnique) {
    ASSERT_EQ(ModelTable().size(), 19u);
    QSet<int> codes;
    for (const ModelRow& row : ModelTable()) {
        EXPECT_EQ(CodeFromCapacity(row.capacity), row.code) << row.name;
        EXPECT_EQ(QString(row.name), QStringLiteral("R770-%1-Kxx").arg(row.capacity));
        const int voltageDigit = QString(row.capacity).left(1).toInt();
        EXPECT_TRUE(voltageDigit == 1 || voltageDigit == 2 || voltageDigit == 4) << row.name;
        codes.insert(row.code);
    }
    EXPECT_EQ(codes.size(), 19);
    EXPECT_EQ(ModelTable().front().code, 1102);
    EXPECT_EQ(ModelTable().back().code, 415);
    EXPECT_EQ(CodeFromCapacity("2X5"), -1);
    EXPECT_EQ(CodeFromCapacity("20"), -1);
}

TEST(ModelTable, LookupsLeaveOutputsAloneWhenNothingMatches) {
    QString capacity = "keep";
    EXPECT_TRUE(ModelNameFromCode(999, capacity).isEmpty());
    EXPECT_EQ(capacity, "keep");
    EXPECT_EQ(ModelNameFromCode(1207, capacity), "R770-2P7-Kxx");
    EXPECT_EQ(capacity, "2P7");

    int code = 7;
    capacity = "keep";
    ModelFromName("R770-999-Kxx", code, capacity);
    EXPECT_EQ(code, 7);
    EXPECT_EQ(capacity, "keep");
    ModelFromName(" R770-201-Kxx", code, capacity);  // no trimming here: the caller trims
    EXPECT_EQ(code, 7);
    ModelFromName("R770-201-Kxx", code, capacity);
    EXPECT_EQ(code, 201);
    EXPECT_EQ(capacity, "201");
}

TEST(ModelSpec, NamesDropTheirLastCharacterAndDescriptionsCollect) {
    const ModelSpecList spec = ParseModelSpec(
        "TYPE:R770-201-Kxx;\n"
        "  200 V class, 0.75 kW  \n"
        "abc\n"                      // under five characters: not a description line
        "Rated current 4.2 A\r\n"
        "TYPE:R770-202-Kxx;\n"
        "200 V class, 1.5 kW\n");
    ASSERT_EQ(spec.names, (QStringList{"R770-201-Kxx", "R770-202-Kxx"}));
    ASSERT_EQ(spec.descriptions.size(), 2);
    EXPECT_EQ(spec.descriptions[0], "200 V class, 0.75 kW\r\nRated current 4.2 A\r\n");
    EXPECT_EQ(spec.descriptions[1], "200 V class, 1.5 kW\r\n");
}

TEST(ModelSpec, ModelWithoutDescriptionShiftsTheRestAndLastLineLosesACharacter) {
    const ModelSpecList spec = ParseModelSpec(
        "TYPE:R770-101-Kxx;\n"
        "TYPE:R770-201-Kxx;\n"
        "first description\n"
        "TYPE:R770-202-Kxx;\n"
        "second descriptionX");  // no line feed: the last character still goes
    ASSERT_EQ(spec.names.size(), 3);
    ASSERT_EQ(spec.descriptions.size(), 2);
    EXPECT_EQ(spec.descriptions[0], "first description\r\n");  // pairs with the first name
    EXPECT_EQ(spec.descriptions[1], "second description\r\n");
}

TEST(ModelSpec, PrefixSearchIsCaseInsensitiveAndMissingFileGivesEmptyLists) {
    const QStringList names{"R770-101-Kxx", "R770-201-Kxx", "R770-202-Kxx"};
    EXPECT_EQ(FindModelByPrefix(names, "r770-20"), 1);
    EXPECT_EQ(FindModelByPrefix(names, ""), 0);
    EXPECT_EQ(FindModelByPrefix(names, "R770-9"), -1);
    const ModelSpecList none = ReadModelSpec("/nonexistent/dir/R770.SPE");
    EXPECT_TRUE(none.names.isEmpty());
    EXPECT_TRUE(none.descriptions.isEmpty());
}
