#pragma once

namespace type {

// Values of the node's "generator" attribute. Its enum offers only Off,
// FrameNumber, SceneTime, RandomCharacters, AnimatedText and Python; the other
// values are reachable by setting the number directly, and scenes may hold
// them, so every value keeps its routine.
enum class GeneratorMode : int {
    Off = 0,
    FrameNumber = 1,
    SceneTime = 2,
    Clock = 3,
    Countdown = 4,
    RandomNumber = 5,
    RandomCharacters = 6,
    KeyedText = 7,
    AnimatedText = 8,
    Python = 9,
};

// Values of "randomizerMode": which characters a perturbed character may become.
enum class RandomizerMode : int {
    Alphanumeric = 0,
    Alphabetical = 1,
    Numeric = 2,
    InputText = 3,
};

} // namespace type
