#include "textsource/TextGenerator.h"

#include "textsource/AnimatedTextKeys.h"
#include "textsource/AnimatedTextTiming.h"
#include "textsource/CharacterPerturbation.h"
#include "textsource/FrameRates.h"
#include "textsource/HexText.h"

#include <OpenZyvo/ZRandom.h>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <limits>

namespace type {

namespace {

// Widths and decimal places are clamped so that a mistyped value cannot build
// a gigantic text (or turn a negative width into left alignment).
constexpr int kLargestWidth = 1000;

int width(int value) {
    return std::clamp(value, 0, kLargestWidth);
}

// "changeRate" has a minimum of 1; a 0 set from a script would divide by zero.
int changeRate(const GeneratorSettings& settings) {
    return std::max(settings.changeRate, 1);
}

// Truncation toward zero, as a C cast does, but defined for every double.
template <typename Int> Int truncated(double value) {
    if (std::isnan(value))
        return 0;
    const double low = static_cast<double>(std::numeric_limits<Int>::min());
    const double high = static_cast<double>(std::numeric_limits<Int>::max());
    if (value <= low)
        return std::numeric_limits<Int>::min();
    if (value >= high)
        return std::numeric_limits<Int>::max();
    return static_cast<Int>(value);
}

std::string printed(const char* format, ...) __attribute__((format(printf, 1, 2)));

std::string printed(const char* format, ...) {
    va_list args;
    va_start(args, format);
    va_list again;
    va_copy(again, args);
    const int size = std::vsnprintf(nullptr, 0, format, args);
    va_end(args);
    std::string text(static_cast<std::size_t>(std::max(size, 0)), '\0');
    if (size > 0)
        std::vsnprintf(text.data(), text.size() + 1, format, again);
    va_end(again);
    return text;
}

// The frame held for changeRate frames.
double heldFrame(const GeneratorSettings& settings) {
    return settings.time - std::fmod(settings.time, static_cast<double>(changeRate(settings)));
}

// Which changeRate-long stretch of frames the time lies in.
std::int64_t timeStep(const GeneratorSettings& settings) {
    return truncated<std::int64_t>(settings.time / changeRate(settings));
}

std::string frameNumber(const GeneratorSettings& settings, const TextGeneratorHost&, std::ostream&) {
    return printed("%0*d", width(settings.length), truncated<int>(heldFrame(settings)));
}

// The two branches pad to different widths (length + 2 + decimals, and
// length + 1); scenes rely on both.
std::string sceneTime(const GeneratorSettings& settings, const TextGeneratorHost&, std::ostream&) {
    const double seconds = heldFrame(settings) / framesPerSecond(settings.timeUnit);
    const int decimals = width(settings.decimalPlaces);
    if (decimals > 0)
        return printed("%0*.*f", width(settings.length) + 2 + decimals, decimals, seconds);
    return printed("%0*i", width(settings.length) + 1, truncated<int>(std::floor(seconds + 0.5)));
}

std::string timeOfDay(const GeneratorSettings&, const TextGeneratorHost& host, std::ostream&) {
    const std::time_t now = host.now ? host.now() : std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    char text[255];
    const std::size_t size = std::strftime(text, sizeof(text), "%X", &local);
    return std::string(text, size);
}

// Counts down by one every changeRate frames from frame 1 on. The division
// truncates toward zero, so frame 0 may count one above the start value.
std::string countdown(const GeneratorSettings& settings, const TextGeneratorHost&, std::ostream&) {
    const std::int64_t elapsed =
        (static_cast<std::int64_t>(truncated<int>(settings.time)) - 1) / changeRate(settings);
    return printed("%0*lld", width(settings.length), static_cast<long long>(settings.countdown - elapsed));
}

struct RandomRange {
    std::int64_t low;
    std::uint64_t span;
};

// A reversed range is read the other way round.
RandomRange randomRange(const GeneratorSettings& settings) {
    const std::int64_t low = std::min(settings.randomMin, settings.randomMax);
    const std::int64_t high = std::max(settings.randomMin, settings.randomMax);
    return {low, static_cast<std::uint64_t>(high - low + 1)};
}

// A negative minimum prints as a signed number rather than wrapping round as
// an unsigned one.
std::string randomNumber(const GeneratorSettings& settings, const TextGeneratorHost&, std::ostream&) {
    const RandomRange range = randomRange(settings);
    const std::uint64_t draw = ZRandom::Rand(timeStep(settings), settings.randomSeed);
    const auto value = static_cast<std::int64_t>(draw % range.span) + range.low;
    return printed("%0*lld", width(settings.length), static_cast<long long>(value));
}

std::string keyedHex(const GeneratorSettings& settings, std::ostream& diagnostics) {
    return keyedText(parseAnimatedTextKeys(settings.animatedType, diagnostics), settings.time);
}

// The text that the perturbing modes start from: the current key's text, or
// textInput before the first key or without keys.
std::string sourceText(const GeneratorSettings& settings, std::ostream& diagnostics) {
    const std::string keyed = keyedHex(settings, diagnostics);
    return decodeHexText(keyed.empty() ? settings.textInput : keyed);
}

// Perturbs the characters in text order, in place: with the InputText set a
// character draws from the text as perturbed so far.
template <typename RangeOf>
std::string perturbed(std::string text, const GeneratorSettings& settings, RangeOf rangeOf) {
    const std::int64_t step = timeStep(settings);
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::int64_t seed = perturbationSeed(settings.randomSeed, step, i);
        text[i] = perturbCharacter(text[i], rangeOf(i, seed), settings.randomizerMode, text, seed);
    }
    return text;
}

// Each character moves by up to a range drawn from randomRange, afresh every
// changeRate frames. "percent" and "delay" time the reveal of AnimatedText and
// play no part here: this mode scrambles steadily. A drawn range of 0 or less
// shows the character plainly.
std::string randomCharacters(const GeneratorSettings& settings, const TextGeneratorHost&,
                             std::ostream& diagnostics) {
    const RandomRange range = randomRange(settings);
    return perturbed(sourceText(settings, diagnostics), settings, [&](std::size_t, std::int64_t seed) {
        return static_cast<std::int64_t>(ZRandom::Rand(1, seed) % range.span) + range.low;
    });
}

std::string keyedTextRoutine(const GeneratorSettings& settings, const TextGeneratorHost&,
                             std::ostream& diagnostics) {
    return decodeHexText(keyedHex(settings, diagnostics));
}

// Each character is perturbed by as much as the "percent" curve reads at its
// own time, so it settles once its curve reaches 0. Without a curve every
// character uses the attribute's current value.
std::string animatedText(const GeneratorSettings& settings, const TextGeneratorHost& host,
                         std::ostream& diagnostics) {
    const std::string source = sourceText(settings, diagnostics);
    const std::size_t n = source.size();
    const std::vector<double> times = characterTimes(shuffledOrder(n, settings.randomSeed), settings.time,
                                                     settings.delay, settings.reverse, settings.random);
    std::optional<std::vector<double>> values = host.percentAt ? host.percentAt(times) : std::nullopt;
    if (!values)
        values = std::vector<double>(n, static_cast<double>(settings.percent));
    const bool oneEach = values->size() == n;
    return perturbed(source, settings, [&](std::size_t i, std::int64_t) {
        return oneEach ? truncated<std::int64_t>((*values)[i]) : std::int64_t{0};
    });
}

std::string python(const GeneratorSettings& settings, const TextGeneratorHost& host, std::ostream&) {
    if (!host.runPython || !host.runPython(kPythonPreamble) || settings.pythonExpression.empty() ||
        !host.evaluatePython)
        return {};
    return host.evaluatePython(settings.pythonExpression).value_or(std::string());
}

using Routine = std::string (*)(const GeneratorSettings&, const TextGeneratorHost&, std::ostream&);

// One routine per mode value from 1, picked by value - 1.
constexpr std::array<Routine, 9> kRoutines{frameNumber,      sceneTime,    timeOfDay,
                                           countdown,        randomNumber, randomCharacters,
                                           keyedTextRoutine, animatedText, python};

} // namespace

std::string generateText(const GeneratorSettings& settings, const TextGeneratorHost& host,
                         std::ostream& diagnostics) {
    const int value = static_cast<int>(settings.mode);
    if (value < 1 || value > static_cast<int>(kRoutines.size()))
        return settings.textInput;
    return encodeHexText(kRoutines[static_cast<std::size_t>(value - 1)](settings, host, diagnostics));
}

} // namespace type
