#include "EnumFields.h"

#include <gtest/gtest.h>

namespace {

using zyvo::EnumField;
using zyvo::parseEnumFields;

std::vector<std::pair<std::string, short>> pairs(const std::vector<EnumField>& fields) {
    std::vector<std::pair<std::string, short>> out;
    for (const EnumField& field : fields)
        out.emplace_back(field.name, field.value);
    return out;
}

TEST(EnumFields, AFieldWithoutAValueFollowsItsPredecessor) {
    const auto fields = parseEnumFields("Left=1:Centre:Right");
    ASSERT_TRUE(fields);
    EXPECT_EQ(pairs(*fields),
              (std::vector<std::pair<std::string, short>>{{"Left", 1}, {"Centre", 2}, {"Right", 3}}));
    const auto gaps = parseEnumFields("Off:On:Auto=10:Later:Before=-2");
    ASSERT_TRUE(gaps);
    EXPECT_EQ(pairs(*gaps), (std::vector<std::pair<std::string, short>>{
                                {"Off", 0}, {"On", 1}, {"Auto", 10}, {"Later", 11}, {"Before", -2}}));
}

TEST(EnumFields, MalformedListsAreRefusedNotGuessed) {
    for (const char* text : {"", ":", "Left:", "Left=:Right", "Left=x", "Left=1x", "=3", "Big=40000", "A::B"})
        EXPECT_FALSE(parseEnumFields(text)) << '"' << text << '"';
}

TEST(EnumFields, FieldsArePickedIgnoringCaseAndListedAsTyped) {
    const auto fields = *parseEnumFields("Left=1:Centre:Right");
    ASSERT_NE(zyvo::findField(fields, "CENTRE"), nullptr);
    EXPECT_EQ(zyvo::findField(fields, "CENTRE")->value, 2);
    EXPECT_EQ(zyvo::findField(fields, "middle"), nullptr);
    EXPECT_EQ(zyvo::fieldChoices(fields), "left, centre or right");
    EXPECT_EQ(zyvo::fieldChoices({{"On", 1}}), "on");
}

TEST(EnumFields, FieldNamesWithBlanksAreTypedWithDashes) {
    const auto fields = *parseEnumFields("Distance Field:Normals");
    ASSERT_NE(zyvo::findField(fields, "distance-field"), nullptr);
    EXPECT_EQ(zyvo::findField(fields, "Distance-Field")->value, 0);
    EXPECT_EQ(zyvo::fieldChoices(fields), "distance-field or normals");
}

} // namespace
