#pragma once

#include "AnimTestNode.h"
#include "anim/PlaybackRange.h"
#include "graph/Graph.h"

#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZPlug.h>
#include <gtest/gtest.h>

// A fresh scene in film frames for each test.
class AnimScene : public ::testing::Test {
protected:
    void SetUp() override {
        AnimTestNode::registerType();
        ZTime::setUIUnit(ZTime::kFilm);
        oz::Graph::instance().clear();
        oz::anim::PlaybackRange::scene() = oz::anim::PlaybackRange::defaults();
        AnimTestNode::normalComputes = AnimTestNode::contextComputes = 0;
    }
    void TearDown() override {
        oz::Graph::instance().clear();
        ZTime::setUIUnit(ZTime::kFilm);
    }

    static ZObject makeNode(const char* typeName = AnimTestNode::kTypeName) {
        ZStatus status;
        ZObject node = ZFnDependencyNode().create(typeName, &status);
        EXPECT_EQ(status, ZStatus::kSuccess) << typeName;
        return node;
    }
    static ZPlug plug(const ZObject& node, const char* name) {
        return ZFnDependencyNode(node).findPlug(name, true);
    }
    static ZTime frame(double value) { return ZTime(value, ZTime::kFilm); }
};
