#include "textsource/HexText.h"
#include "textsource/TextGenerator.h"

#include <OpenZyvo/ZRandom.h>
#include <cstdlib>
#include <gtest/gtest.h>
#include <sstream>

namespace type {
namespace {

GeneratorSettings settingsFor(GeneratorMode mode, double time) {
    GeneratorSettings settings;
    settings.mode = mode;
    settings.time = time;
    return settings;
}

// The generated text, decoded.
std::string text(const GeneratorSettings& settings, const TextGeneratorHost& host = {}) {
    std::ostringstream diagnostics;
    return decodeHexText(generateText(settings, host, diagnostics));
}

TEST(TextGenerator, OffAndUnknownModesPassTextInputThrough) {
    GeneratorSettings settings = settingsFor(GeneratorMode::Off, 1.0);
    settings.textInput = "41  42";
    std::ostringstream diagnostics;
    EXPECT_EQ(generateText(settings, {}, diagnostics), "41  42");
    settings.mode = static_cast<GeneratorMode>(12);
    EXPECT_EQ(generateText(settings, {}, diagnostics), "41  42");
    settings.mode = static_cast<GeneratorMode>(-1);
    EXPECT_EQ(generateText(settings, {}, diagnostics), "41  42");
}

TEST(TextGenerator, GeneratedTextIsHexEncoded) {
    GeneratorSettings settings = settingsFor(GeneratorMode::FrameNumber, 37.0);
    std::ostringstream diagnostics;
    EXPECT_EQ(generateText(settings, {}, diagnostics), "30 30 33 37 ");
}

TEST(TextGenerator, FrameNumberHoldsForTheChangeRate) {
    GeneratorSettings settings = settingsFor(GeneratorMode::FrameNumber, 37.0);
    settings.changeRate = 5;
    EXPECT_EQ(text(settings), "0035");
    settings.time = 39.9;
    EXPECT_EQ(text(settings), "0035");
    settings.time = 40.0;
    settings.length = 1;
    EXPECT_EQ(text(settings), "40");
    settings.changeRate = 0;
    settings.time = 41.5;
    EXPECT_EQ(text(settings), "41");
}

TEST(TextGenerator, SceneTimePadsEachBranchToItsOwnWidth) {
    GeneratorSettings settings = settingsFor(GeneratorMode::SceneTime, 36.0);
    settings.timeUnit = ZTime::kFilm;
    settings.length = 2;
    settings.decimalPlaces = 0;
    EXPECT_EQ(text(settings), "002");
    settings.decimalPlaces = 2;
    EXPECT_EQ(text(settings), "001.50");
    settings.timeUnit = ZTime::kNTSCField;
    settings.changeRate = 20;
    settings.decimalPlaces = 1;
    settings.length = 0;
    EXPECT_EQ(text(settings), "0.3");
    settings.timeUnit = ZTime::kSeconds;
    settings.changeRate = 1;
    settings.decimalPlaces = 0;
    EXPECT_EQ(text(settings), "36");
}

TEST(TextGenerator, ClockShowsTheLocalTimeOfDay) {
    ::setenv("TZ", "UTC", 1);
    ::tzset();
    TextGeneratorHost host;
    host.now = [] {
        return std::time_t{13 * 3600 + 62};
    };
    EXPECT_EQ(text(settingsFor(GeneratorMode::Clock, 1.0), host), "13:01:02");
}

TEST(TextGenerator, CountdownUsesTruncatingIntegerDivision) {
    GeneratorSettings settings = settingsFor(GeneratorMode::Countdown, 1.0);
    settings.countdown = 10;
    EXPECT_EQ(text(settings), "0010");
    settings.time = 4.7;
    EXPECT_EQ(text(settings), "0007");
    settings.changeRate = 2;
    EXPECT_EQ(text(settings), "0009");
    settings.time = 0.0;
    EXPECT_EQ(text(settings), "0010");
    settings.changeRate = 1;
    EXPECT_EQ(text(settings), "0011");
    settings.time = 30.0;
    EXPECT_EQ(text(settings), "-019");
}

TEST(TextGenerator, RandomNumberIsDrawnPerChangeRateStep) {
    GeneratorSettings settings = settingsFor(GeneratorMode::RandomNumber, 12.0);
    settings.changeRate = 5;
    settings.randomSeed = 7;
    settings.randomMin = 100;
    settings.randomMax = 110;
    settings.length = 5;
    const std::string expected = "00" + std::to_string(ZRandom::Rand(2, 7) % 11 + 100);
    EXPECT_EQ(text(settings), expected);
    settings.time = 14.9;
    EXPECT_EQ(text(settings), expected);
    std::swap(settings.randomMin, settings.randomMax);
    EXPECT_EQ(text(settings), expected);
    settings.randomMin = settings.randomMax = -3;
    settings.length = 4;
    EXPECT_EQ(text(settings), "-003");
}

TEST(TextGenerator, KeyedTextComesFromTheAnimatedTypeDocument) {
    GeneratorSettings settings = settingsFor(GeneratorMode::KeyedText, 5.0);
    settings.animatedType = R"([{"hex": "48 69 ", "frame": 5}, {"hex": "c3 a9 ", "frame": 8.5}])";
    EXPECT_EQ(text(settings), "");
    settings.time = 6.0;
    EXPECT_EQ(text(settings), "Hi");
    settings.time = 9.0;
    EXPECT_EQ(text(settings), "\xC3\xA9");
}

TEST(TextGenerator, BadAnimatedTypeIsReportedOnTheDiagnosticStream) {
    GeneratorSettings settings = settingsFor(GeneratorMode::KeyedText, 5.0);
    settings.animatedType = R"({"hex": "41 ", "frame": 1})";
    std::ostringstream diagnostics;
    EXPECT_EQ(generateText(settings, {}, diagnostics), "");
    EXPECT_EQ(diagnostics.str(), "Type JSON Error\n");
}

TEST(TextGenerator, RandomCharactersScrambleTheInputPerStepOnly) {
    GeneratorSettings settings = settingsFor(GeneratorMode::RandomCharacters, 10.0);
    settings.textInput = encodeHexText("5555555555");
    settings.randomizerMode = RandomizerMode::Numeric;
    settings.randomMin = settings.randomMax = 2;
    settings.changeRate = 5;
    const std::string first = text(settings);
    ASSERT_EQ(first.size(), 10u);
    EXPECT_TRUE(first.find_first_not_of("3456") == std::string::npos) << first;
    EXPECT_NE(first.find_first_not_of(first[0]), std::string::npos) << "neighbours should differ: " << first;
    settings.time = 14.0;
    EXPECT_EQ(text(settings), first);
    settings.time = 15.0;
    EXPECT_NE(text(settings), first);

    settings.randomMin = settings.randomMax = 0;
    EXPECT_EQ(text(settings), "5555555555");
}

TEST(TextGenerator, RandomCharactersStartFromTheCurrentKey) {
    GeneratorSettings settings = settingsFor(GeneratorMode::RandomCharacters, 3.0);
    settings.randomMin = settings.randomMax = 0;
    settings.textInput = encodeHexText("input");
    settings.animatedType = R"([{"hex": "6b 65 79 ", "frame": 2}])";
    EXPECT_EQ(text(settings), "key");
    settings.time = 2.0;
    EXPECT_EQ(text(settings), "input");
}

TEST(TextGenerator, AnimatedTextWithoutCurveUsesThePercentValue) {
    GeneratorSettings settings = settingsFor(GeneratorMode::AnimatedText, 10.0);
    settings.textInput = encodeHexText("0000000000");
    settings.randomizerMode = RandomizerMode::Numeric;
    EXPECT_EQ(text(settings), "0000000000");
    settings.percent = 3;
    const std::string scrambled = text(settings);
    EXPECT_NE(scrambled, "0000000000");
    EXPECT_EQ(scrambled.find_first_not_of("0123789"), std::string::npos) << scrambled;
}

TEST(TextGenerator, AnimatedTextReadsThePercentCurveAtEachCharactersTime) {
    GeneratorSettings settings = settingsFor(GeneratorMode::AnimatedText, 10.0);
    settings.textInput = encodeHexText("AAAAA");
    settings.delay = 2.0;
    settings.reverse = true;
    std::vector<double> asked;
    TextGeneratorHost host;
    // Characters whose time has reached 8 are settled.
    host.percentAt = [&](const std::vector<double>& times) {
        asked = times;
        std::vector<double> values;
        for (double t : times)
            values.push_back(t >= 8.0 ? 0.0 : 30.9);
        return std::optional(values);
    };
    const std::string animated = text(settings, host);
    EXPECT_EQ(asked, (std::vector<double>{2.0, 4.0, 6.0, 8.0, 10.0}));
    ASSERT_EQ(animated.size(), 5u);
    EXPECT_EQ(animated.substr(3), "AA");
    EXPECT_NE(animated.substr(0, 3), "AAA");

    host.percentAt = [](const std::vector<double>&) {
        return std::optional(std::vector<double>{50.0});
    };
    EXPECT_EQ(text(settings, host), "AAAAA");
}

TEST(TextGenerator, AnimatedTextMarksBytesOutsideTheSet) {
    GeneratorSettings settings = settingsFor(GeneratorMode::AnimatedText, 1.0);
    settings.textInput = encodeHexText("\xC3\xA9"
                                       "5");
    settings.randomizerMode = RandomizerMode::Numeric;
    settings.percent = 1;
    const std::string animated = text(settings);
    EXPECT_EQ(animated.substr(0, 2), "??");
}

struct PythonCalls {
    std::vector<std::string> statements;
    std::vector<std::string> expressions;
};

TextGeneratorHost pythonHost(PythonCalls& calls, bool preambleRuns, std::optional<std::string> result) {
    TextGeneratorHost host;
    host.runPython = [&calls, preambleRuns](const std::string& code) {
        calls.statements.push_back(code);
        return preambleRuns;
    };
    host.evaluatePython = [&calls, result](const std::string& expression) {
        calls.expressions.push_back(expression);
        return result;
    };
    return host;
}

TEST(TextGenerator, PythonRunsThePreambleThenTheExpression) {
    PythonCalls calls;
    const GeneratorSettings settings = settingsFor(GeneratorMode::Python, 1.0);
    EXPECT_EQ(text(settings, pythonHost(calls, true, "3.14")), "3.14");
    EXPECT_EQ(calls.statements,
              std::vector<std::string>{"import zyvo.cmds\nimport math\nimport random\nimport string\n"});
    EXPECT_EQ(calls.expressions, std::vector<std::string>{"round(random.uniform(0,5), 2)"});
}

TEST(TextGenerator, FailingPythonGivesAnEmptyText) {
    GeneratorSettings settings = settingsFor(GeneratorMode::Python, 1.0);
    PythonCalls raising;
    EXPECT_EQ(text(settings, pythonHost(raising, true, std::nullopt)), "");

    PythonCalls noPreamble;
    EXPECT_EQ(text(settings, pythonHost(noPreamble, false, "1")), "");
    EXPECT_TRUE(noPreamble.expressions.empty());

    PythonCalls empty;
    settings.pythonExpression.clear();
    EXPECT_EQ(text(settings, pythonHost(empty, true, "1")), "");
    EXPECT_TRUE(empty.expressions.empty());

    EXPECT_EQ(text(settings), "");
}

} // namespace
} // namespace type
