#pragma once

#include <OpenZyvo/ZPxNode.h>
#include <string>

// A node made for the scene tests: stored attributes of many kinds, an
// output computed from `input`, and a profile curve that, like the
// plug-in's extrusion profiles, gets default points at construction unless
// a file being read gave it some.
class SceneTestNode : public ZPxNode {
public:
    static constexpr const char* kTypeName = "sceneTestNode";
    static ZObject weight;  // double 1, 0..10, keyable
    static ZObject mode;    // enum Off=0 On=1 Auto=5, default On
    static ZObject label;   // string, default "none"
    static ZObject samples; // doubleArray
    static ZObject profile; // curve
    static ZObject spin;    // angle
    static ZObject input;   // double, keyable
    static ZObject output;  // 2 * input, not stored

    // A script the next compute runs once it has its output, as a node
    // running a user's expression would, and what running it returned.
    static std::string scriptAfterCompute;
    static ZStatus scriptStatus;

    // What the last postConstructor saw.
    static bool constructedWhileReading;
    static unsigned int profilePointsAtConstruction;

    static void registerType();

    void postConstructor() override;
    ZStatus compute(const ZPlug& plug, ZDataBlock& block) override;
};
