#pragma once

#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZString.h>
#include <OpenZyvo/ZStringResourceId.h>
#include <span>

// The plug-in's user-facing texts. Each is a host string resource of the
// "Type" group with its English default; it is fetched from the host every
// time it is shown, so a translation loaded later is honoured.
namespace type::messages {

inline const ZString kPluginId = "Type";

inline const ZStringResourceId kTypeName(kPluginId, "kTypeName", "Type");
inline const ZStringResourceId kTypeManipName(kPluginId, "kTypeManipName", "Type Manipulator");
inline const ZStringResourceId kTypeParseError(kPluginId, "kTypeParseError",
                                               "assignShaderCommand:  Could not parse argument list");
inline const ZStringResourceId kTypeMissingFlagsError(kPluginId, "kTypeMissingFlagsError",
                                                      "assignShaderCommand:  Missing flag arguements");
inline const ZStringResourceId
    kGroupIDArgsError(kPluginId, "kGroupIDArgsError",
                      "assignShaderCommand:  Could not retrieve groupIdNode command argument");
inline const ZStringResourceId
    kShaderGroupArgsError(kPluginId, "kShaderGroupArgsError",
                          "assignShaderCommand:  Could not retrieve shader group command argument");
inline const ZStringResourceId
    kMeshArgsError(kPluginId, "kMeshArgsError",
                   "assignShaderCommand:  Could not retrieve mesh command argument");
inline const ZStringResourceId kInvalidTriError(kPluginId, "kInvalidTriError",
                                                "TypeTool:  No valid triangulation found.");
inline const ZStringResourceId kNoSVGFound(kPluginId, "kNoSVGFound", "No SVG file found.");
inline const ZStringResourceId kFileLoadError(kPluginId, "kFileLoadError", "Failed to load file: ");
inline const ZStringResourceId kSVGParseError(kPluginId, "kSVGParseError", "Error parsing SVG.");
inline const ZStringResourceId kSVGNbPointsError(kPluginId, "kSVGNbPointsError",
                                                 "Unexpected number of points for SVG path.");
inline const ZStringResourceId kSVGEvenodd(kPluginId, "kSVGEvenodd", "\"Evenodd\" fill-rule not supported.");
inline const ZStringResourceId kSVGImages(kPluginId, "kSVGImages", "Non-vector images not supported.");
inline const ZStringResourceId kSVGStrokes(kPluginId, "kSVGStrokes", "Strokes not supported.");
inline const ZStringResourceId kSVGOpacity(kPluginId, "kSVGOpacity", "Opacity not supported.");
inline const ZStringResourceId kSVGVisibility(kPluginId, "kSVGVisibility", "Hidden elements not supported.");
inline const ZStringResourceId kSVGSmall(kPluginId, "kSVGSmall",
                                         "Artwork dimensions are small. There may be unexpected results.");
inline const ZStringResourceId kSVGOverlapholes(kPluginId, "kSVGOverlapholes",
                                                "Not fully contained holes are not supported.");
inline const ZStringResourceId kTypeManipHelp(kPluginId, "kTypeManipHelp",
                                              "Move, Rotate, and Scale characters, words or lines.");
inline const ZStringResourceId kTypeManipConnectError(kPluginId, "kTypeManipConnectError",
                                                      "Error connecting Type manipulator to selected object");
inline const ZStringResourceId kDistanceField(kPluginId, "kDistanceField", "Distance Field");
inline const ZStringResourceId kNormals(kPluginId, "kNormals", "Normals");
inline const ZStringResourceId kTypeExtrudeNoMesh(kPluginId, "kTypeExtrudeNoMesh",
                                                  "Node TypeExtrude cannot get input mesh\n");
inline const ZStringResourceId kTypeSVGNoValidInput(kPluginId, "kTypeSVGNoValidInput",
                                                    "No valid input. Check the Script Editor for more info.");
inline const ZStringResourceId kSVGMultipleIssues(kPluginId, "kSVGMultipleIssues",
                                                  "SVG issues: Check the Script Editor for more info.");

// Fetches the current text of a message and fills its "^1s" placeholders.
ZString text(const ZStringResourceId& id, const ZString& arg1 = {}, const ZString& arg2 = {});

// The texts registered at plug-in load, in registration order.
std::span<const ZStringResourceId* const> registeredMessages();

// Registers every text above with the host ("typeToolInitStrings").
ZStatus typeToolInitStrings();

} // namespace type::messages
