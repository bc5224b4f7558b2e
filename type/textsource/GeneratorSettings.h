#pragma once

#include "textsource/GeneratorModes.h"

#include <OpenZyvo/ZTime.h>
#include <string>

namespace type {

// The node's text-source attributes, read at each compute. Defaults are the
// attributes' defaults.
struct GeneratorSettings {
    GeneratorMode mode = GeneratorMode::Off;
    // "time" in the host's current unit (frames), and that unit.
    double time = 1.0;
    ZTime::Unit timeUnit = ZTime::kFilm;
    int countdown = 0;
    int changeRate = 1;
    int randomMin = 0;
    int randomMax = 10;
    int length = 4;
    int decimalPlaces = 3;
    int randomSeed = 0;
    int percent = 0;
    bool reverse = false;
    bool random = false;
    double delay = 0.0;
    RandomizerMode randomizerMode = RandomizerMode::Alphanumeric;
    std::string animatedType;
    std::string pythonExpression = "round(random.uniform(0,5), 2)";
    // "textInput", in its hex encoding.
    std::string textInput = "33 44 20 54 79 70 65";
};

} // namespace type
