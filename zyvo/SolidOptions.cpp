#include "SolidOptions.h"

#include "NodeSchema.h"
#include "NodeSettings.h"
#include "NumberOption.h"

#include <CLI/CLI.hpp>

namespace zyvo {

namespace {

constexpr char kExtrudeNode[] = "typeExtrude";

// Depths and bevels a scene can hold. The node sets no upper bound on its
// divisions; this one keeps a typo from asking for a mesh no machine holds.
constexpr double kMinDepth = 0.001;
constexpr double kMaxDistance = 100000;
constexpr long kMaxDivisions = 1000;

std::optional<float> asFloat(const std::optional<double>& value) {
    return value ? std::optional(static_cast<float>(*value)) : std::nullopt;
}

} // namespace

void addSolidOptions(CLI::App& text, SolidRequest& request) {
    CLI::Option* flat = text.add_flag("--flat", request.flat, "Write the flat mesh instead of the solid");
    const auto solidOption = [&](CLI::Option* option) {
        option->excludes(flat);
    };
    const CLI::Validator distance = numberFrom(-kMaxDistance, kMaxDistance);
    solidOption(text.add_option("--extrude", request.extrude, "Depth of the solid in scene units")
                    ->check(numberFrom(kMinDepth, kMaxDistance))
                    ->type_name("DEPTH"));
    solidOption(text.add_option("--extrude-divisions", request.extrudeDivisions, "Rings along the walls")
                    ->check(wholeNumber())
                    ->type_name("N"));
    solidOption(text.add_option("--bevel", request.bevel, "A front bevel about SIZE wide and SIZE deep")
                    ->check(numberFrom(0, kMaxDistance))
                    ->type_name("SIZE"));
    solidOption(text.add_option("--bevel-distance", request.bevelDistance, "The node's bevelDistance")
                    ->check(distance)
                    ->type_name("D"));
    solidOption(text.add_option("--bevel-offset", request.bevelOffset, "The node's bevelOffset")
                    ->check(distance)
                    ->type_name("O"));
    solidOption(text.add_option("--bevel-divisions", request.bevelDivisions, "Rings across the bevel")
                    ->check(wholeNumber())
                    ->type_name("N"));
    solidOption(
        text.add_option("--bevel-style", request.bevelStyle, "One of the typeExtrude node's bevel styles")
            ->type_name("STYLE"));
    solidOption(text.add_flag("--back-bevel", request.backBevel, "A back bevel like the front one"));
    solidOption(text.add_option("--offset-mode", request.offsetMode,
                                "How bevel rings are offset, one of the typeExtrude node's modes")
                    ->type_name("MODE"));
    solidOption(text.add_flag("--no-caps", request.noCaps, "Leave the front and back caps out"));
}

ZStatus checkSolidSettings(const SolidRequest& request, Host& host, SolidChoices& choices) {
    const NodeSchema node(kExtrudeNode);
    ZStatus status;
    if (request.bevelStyle)
        status = node.enumValue("bevelStyle", *request.bevelStyle, "--bevel-style", host, choices.bevelStyle);
    if (status && request.offsetMode)
        status = node.enumValue("mode", *request.offsetMode, "--offset-mode", host, choices.offsetMode);
    if (status && request.extrudeDivisions)
        status = node.checkWholeNumber("extrudeDivisions", *request.extrudeDivisions, "--extrude-divisions",
                                       host, kMaxDivisions);
    if (status && request.bevelDivisions)
        status = node.checkWholeNumber("bevelDivisions", *request.bevelDivisions, "--bevel-divisions", host,
                                       kMaxDivisions);
    return status;
}

ZStatus applySolidSettings(const SolidRequest& request, const SolidChoices& choices,
                           const ZObject& extrudeNode) {
    if (request.flat)
        return ZStatus::kSuccess;
    NodeSettings settings(extrudeNode);
    settings.set("extrudeDistance", asFloat(request.extrude));
    settings.set("extrudeDivisions", request.extrudeDivisions);
    if (request.bevel) {
        // The outer style needs enableOuterBevel and takes its width from
        // bevelDistance and its depth from bevelOffset; the inner style needs
        // enableFrontBevel and takes them the other way round. With both on
        // and both equal, the bevel is SIZE by SIZE whichever style is chosen.
        settings.set("enableFrontBevel", true);
        settings.set("enableOuterBevel", true);
        settings.set("bevelDistance", static_cast<float>(*request.bevel));
        settings.set("bevelOffset", static_cast<float>(*request.bevel));
    }
    settings.set("bevelDistance", asFloat(request.bevelDistance));
    settings.set("bevelOffset", asFloat(request.bevelOffset));
    settings.set("bevelDivisions", request.bevelDivisions);
    settings.set("bevelStyle", choices.bevelStyle);
    if (request.backBevel) {
        settings.set("enableBackBevel", true);
        settings.set("rearBevelUsesFront", true);
    }
    settings.set("mode", choices.offsetMode);
    if (request.noCaps)
        settings.set("deleteCaps", true);
    return settings.status();
}

} // namespace zyvo
