#include "data/Data.h"

#include <OpenZyvo/ZFnArrayAttrsData.h>
#include <OpenZyvo/ZFnDoubleArrayData.h>
#include <OpenZyvo/ZFnIntArrayData.h>
#include <OpenZyvo/ZFnPointArrayData.h>
#include <OpenZyvo/ZFnStringArrayData.h>
#include <OpenZyvo/ZFnStringData.h>
#include <OpenZyvo/ZFnVectorArrayData.h>
#include <gtest/gtest.h>

TEST(ArrayData, CreateHoldsTheValuesAndArrayEditsTheDataInPlace) {
    ZFnDoubleArrayData fn;
    ZStatus status;
    const ZObject data = fn.create(ZDoubleArray{1.0, 2.0, 3.0}, &status);
    ASSERT_TRUE(status);
    EXPECT_EQ(data.apiType(), ZFn::kDoubleArrayData);
    EXPECT_EQ(fn.length(), 3u);

    fn.array().append(4.0);
    fn.array()[0] = -1.0;
    ZDoubleArray copy;
    ASSERT_TRUE(ZFnDoubleArrayData(data).copyTo(copy));
    EXPECT_EQ(copy, (ZDoubleArray{-1.0, 2.0, 3.0, 4.0}));

    ASSERT_TRUE(fn.set(ZDoubleArray{7.0}));
    EXPECT_EQ(ZFnDoubleArrayData(data).array(), ZDoubleArray{7.0});
}

TEST(ArrayData, EachKindRoundTrips) {
    ZFnIntArrayData ints;
    ints.create(ZIntArray{0, 3, 5});
    EXPECT_EQ(ints.array(), (ZIntArray{0, 3, 5}));

    ZFnVectorArrayData vectors;
    vectors.create(ZVectorArray{{1, 2, 3}});
    EXPECT_EQ(vectors.array()[0], ZVector(1, 2, 3));

    ZFnPointArrayData points;
    points.create(ZPointArray{{1, 2, 3}, {4, 5, 6}});
    EXPECT_EQ(points.length(), 2u);

    ZFnStringArrayData strings;
    strings.create(ZStringArray{"a", "b"});
    EXPECT_EQ(strings.array()[1], "b");

    ZFnStringData text;
    const ZObject data = text.create("33 44");
    EXPECT_EQ(ZFnStringData(data).string(), "33 44");
    ASSERT_TRUE(text.set("20"));
    EXPECT_EQ(text.string(), "20");
}

TEST(ArrayData, WrongKindsAndEmptyFunctionSetsFailWithoutSharingAnything) {
    const ZObject ints = ZFnIntArrayData().create(ZIntArray{1});

    ZStatus status;
    ZFnDoubleArrayData doubles(ints, &status);
    EXPECT_EQ(status, ZStatus::kInvalidParameter);
    EXPECT_EQ(doubles.length(&status), 0u);
    EXPECT_EQ(status, ZStatus::kInvalidParameter);

    // The failing accessor hands out the function set's own scratch array.
    doubles.array(&status).append(5.0);
    EXPECT_EQ(status, ZStatus::kInvalidParameter);
    EXPECT_EQ(doubles.array().length(), 0u);
    EXPECT_EQ(ZFnIntArrayData(ints).array(), ZIntArray{1});

    EXPECT_EQ(ZFnStringData().set("x"), ZStatus::kInvalidParameter);
    ZDoubleArray out;
    EXPECT_EQ(doubles.copyTo(out), ZStatus::kInvalidParameter);
}

TEST(ArrayData, ClonesAreIndependentValues) {
    ZFnVectorArrayData fn;
    const ZObject original = fn.create(ZVectorArray{{1, 0, 0}});
    const auto clone = oz::ObjectAccess::as<oz::Data>(original)->clone();
    const ZObject copy = oz::ObjectAccess::wrap(clone);

    fn.array().append(ZVector(0, 1, 0));
    EXPECT_EQ(ZFnVectorArrayData(copy).length(), 1u);
    EXPECT_EQ(clone->dataType(), ZFnData::kVectorArray);
}

TEST(ArrayAttrsData, NamedArraysReportTheirKindAndRefuseAnother) {
    ZFnArrayAttrsData fn;
    const ZObject data = fn.create();
    fn.vectorArray("position").append(ZVector(1, 2, 3));
    fn.doubleArray("mass").append(2.5);
    fn.intArray("id").append(7);
    fn.stringArray("name").append("A");

    ZFnArrayAttrsData::Type type;
    EXPECT_TRUE(fn.checkArrayExist("position", type));
    EXPECT_EQ(type, ZFnArrayAttrsData::kVectorArray);
    EXPECT_TRUE(fn.checkArrayExist("mass", type));
    EXPECT_EQ(type, ZFnArrayAttrsData::kDoubleArray);
    EXPECT_TRUE(fn.checkArrayExist("id", type));
    EXPECT_EQ(type, ZFnArrayAttrsData::kIntArray);
    EXPECT_TRUE(fn.checkArrayExist("name", type));
    EXPECT_EQ(type, ZFnArrayAttrsData::kStringArray);
    EXPECT_FALSE(fn.checkArrayExist("rotation", type));
    EXPECT_EQ(type, ZFnArrayAttrsData::kInvalidArray);

    ZStatus status;
    fn.doubleArray("position", &status);
    EXPECT_EQ(status, ZStatus::kInvalidParameter);
    EXPECT_EQ(fn.getVectorData("position", &status), ZVectorArray{ZVector(1, 2, 3)});
    EXPECT_TRUE(status);
    fn.getVectorData("mass", &status);
    EXPECT_EQ(status, ZStatus::kInvalidParameter);
    fn.getVectorData("rotation", &status);
    EXPECT_EQ(status, ZStatus::kNotFound);

    const ZFnArrayAttrsData reader(data);
    EXPECT_EQ(reader.list(), (ZStringArray{"id", "mass", "name", "position"}));
    EXPECT_EQ(fn.removeArray("mass"), ZStatus::kSuccess);
    EXPECT_EQ(fn.removeArray("mass"), ZStatus::kNotFound);
    EXPECT_EQ(reader.count(), 3u);
}

TEST(ArrayAttrsData, ReferencesSurviveAddingOtherArrays) {
    ZFnArrayAttrsData fn;
    fn.create();
    ZVectorArray& position = fn.vectorArray("position");
    position.append(ZVector(1, 0, 0));
    for (int i = 0; i < 50; ++i)
        fn.doubleArray(ZString("extra") + ZString(std::to_string(i))).append(i);
    position.append(ZVector(2, 0, 0));
    EXPECT_EQ(fn.getVectorData("position").length(), 2u);
}

// Every array kind keeps the same contract: its own data reads and writes through every accessor,
// another kind's data fails each of them and leaves the caller's array as it was.
template <class Fn, class Array> struct ArrayKind {
    using FnType = Fn;
    using ArrayType = Array;
};

template <class Kind> class ArrayDataKinds : public ::testing::Test {
protected:
    using Fn = typename Kind::FnType;
    using Array = typename Kind::ArrayType;

    static Array sample() {
        Array values;
        values.setLength(2);
        return values;
    }
};

using AllArrayKinds =
    ::testing::Types<ArrayKind<ZFnIntArrayData, ZIntArray>, ArrayKind<ZFnDoubleArrayData, ZDoubleArray>,
                     ArrayKind<ZFnVectorArrayData, ZVectorArray>, ArrayKind<ZFnPointArrayData, ZPointArray>,
                     ArrayKind<ZFnStringArrayData, ZStringArray>>;
TYPED_TEST_SUITE(ArrayDataKinds, AllArrayKinds);

TYPED_TEST(ArrayDataKinds, OwnDataAnswersEveryAccessor) {
    typename TestFixture::Fn fn;
    ZStatus status;
    const ZObject data = fn.create(&status);
    ASSERT_TRUE(status);
    EXPECT_EQ(fn.length(&status), 0u);
    EXPECT_TRUE(status);

    ASSERT_TRUE(fn.set(TestFixture::sample()));
    typename TestFixture::Fn attached(data, &status);
    ASSERT_TRUE(status);
    EXPECT_EQ(attached.length(), 2u);
    typename TestFixture::Array copy;
    ASSERT_TRUE(attached.copyTo(copy));
    EXPECT_EQ(copy, TestFixture::sample());
    EXPECT_EQ(attached.array(&status).length(), 2u);
    EXPECT_TRUE(status);
}

TYPED_TEST(ArrayDataKinds, OtherKindFailsEveryAccessorAndLeavesTheCallersArray) {
    const ZObject text = ZFnStringData().create("not an array");
    ZStatus status;
    typename TestFixture::Fn fn(text, &status);
    EXPECT_EQ(status, ZStatus::kInvalidParameter);
    EXPECT_EQ(fn.length(&status), 0u);
    EXPECT_EQ(status, ZStatus::kInvalidParameter);
    EXPECT_EQ(fn.array(&status).length(), 0u);
    EXPECT_EQ(status, ZStatus::kInvalidParameter);
    EXPECT_EQ(fn.set(TestFixture::sample()), ZStatus::kInvalidParameter);

    typename TestFixture::Array kept = TestFixture::sample();
    EXPECT_EQ(fn.copyTo(kept), ZStatus::kInvalidParameter);
    EXPECT_EQ(kept, TestFixture::sample());
    EXPECT_EQ(ZFnStringData(text).string(), "not an array");
}
