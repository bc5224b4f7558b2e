#include "textsource/HexText.h"

#include <gtest/gtest.h>

namespace type {
namespace {

TEST(HexText, DefaultInputDecodesToThreeDType) {
    EXPECT_EQ(decodeHexText("33 44 20 54 79 70 65"), "3D Type");
    EXPECT_EQ(encodeHexText("3D Type"), "33 44 20 54 79 70 65 ");
}

TEST(HexText, MultiByteUtf8RoundTripsBytewise) {
    const std::string text = "\xC3\xA9t\xC3\xA9 \xE6\x97\xA5\xE6\x9C\xAC \xF0\x9F\x98\x80\n";
    const std::string hex = encodeHexText(text);
    EXPECT_EQ(hex.substr(0, 9), "c3 a9 74 ");
    EXPECT_EQ(hex.size(), text.size() * 3);
    EXPECT_EQ(decodeHexText(hex), text);
}

TEST(HexText, EveryByteValueRoundTrips) {
    std::string all;
    for (int b = 0; b < 256; ++b)
        all += static_cast<char>(b);
    EXPECT_EQ(decodeHexText(encodeHexText(all)), all);
}

TEST(HexText, DecoderAcceptsUpperCaseAndExtraBlanks) {
    EXPECT_EQ(decodeHexText("  4A   6b "), "Jk");
    EXPECT_EQ(decodeHexText(""), "");
    EXPECT_EQ(decodeHexText("   "), "");
}

TEST(HexText, JunkPiecesReadZeroAndLargeNumbersKeepTheirLowByte) {
    EXPECT_EQ(decodeHexText("41 zz 42"), std::string("A\0B", 3));
    EXPECT_EQ(decodeHexText("4g -1 0x41 +41"), std::string(4, '\0'));
    EXPECT_EQ(decodeHexText("141 ffffffffff"), std::string("A\0", 2));
}

TEST(HexText, TokensBecomeUtf16CodeUnits) {
    EXPECT_EQ(hexTokensToQString("33 44 20 54 79 70 65"), QString("3D Type"));
    const QString japanese = hexTokensToQString("65e5 672C a");
    ASSERT_EQ(japanese.size(), 3);
    EXPECT_EQ(japanese[0].unicode(), 0x65E5);
    EXPECT_EQ(japanese[1].unicode(), 0x672C);
    EXPECT_EQ(japanese[2], QChar('\n'));
}

TEST(HexText, SurrogatePairsStayTwoCodeUnits) {
    const QString smiley = hexTokensToQString("d83d de00");
    EXPECT_EQ(smiley, QString::fromUtf8("\xF0\x9F\x98\x80"));
}

// The layout benchmark once wrote a token per UTF-8 byte, so any letter
// beyond ASCII reached the layout as two to four wrong characters.
TEST(HexText, LayoutTokensAreOnePerUtf16CodeUnitNotPerUtf8Byte) {
    const std::string utf8 = "A\xC3\xA9\n\xE6\x97\xA5\xF0\x9F\x98\x80"; // A, e acute, line break, sun, smiley
    EXPECT_EQ(layoutTokens(encodeHexText(utf8)), "41 e9 a 65e5 d83d de00 ");
    EXPECT_EQ(hexTokensToQString(layoutTokens(encodeHexText(utf8))), QString::fromUtf8(utf8.c_str()));
}

TEST(HexText, LayoutTokensReplaceMalformedUtf8) {
    EXPECT_EQ(layoutTokens("41 ff 42"), "41 fffd 42 ");
    EXPECT_EQ(layoutTokens(""), "");
}

TEST(HexText, JunkTokensBecomeNullCodeUnits) {
    const QString text = hexTokensToQString("41  xyz 1F600 ");
    ASSERT_EQ(text.size(), 3);
    EXPECT_EQ(text[0], QChar('A'));
    EXPECT_EQ(text[1].unicode(), 0);
    EXPECT_EQ(text[2].unicode(), 0xF600);
}

} // namespace
} // namespace type
