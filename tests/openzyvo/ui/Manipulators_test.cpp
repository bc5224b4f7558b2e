#include "graph/Graph.h"
#include "graph/NodeTypeRegistry.h"
#include "ui/ManipDrag.h"

#include <OpenZyvo/ZDGModifier.h>
#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZFnNumericAttribute.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvoUI/ZFnFreePointTriadManip.h>
#include <OpenZyvoUI/ZFnRotateManip.h>
#include <OpenZyvoUI/ZFnScaleManip.h>
#include <OpenZyvoUI/ZPxManipContainer.h>
#include <cmath>
#include <gtest/gtest.h>

namespace {

// A node with three plain triples for the handles to edit.
struct Target : ZPxNode {
    static ZStatus initialize() {
        ZFnNumericAttribute fn;
        for (const char* name : {"offset", "turn", "size", "centre"})
            if (ZStatus status = addAttribute(fn.createPoint(name, name)); !status)
                return status;
        return ZStatus::kSuccess;
    }
};

// The move handle stands at twice the offset (a conversion each way); the
// rotate and scale handles are tied to their plugs directly.
class TestManip : public ZPxManipContainer {
public:
    ZStatus createChildren() override {
        move = addFreePointTriadManip("move", "point");
        rotate = addRotateManip("rotate", "rotation");
        scale = addScaleManip("scale", "scale");
        return ZStatus::kSuccess;
    }

    ZStatus connectToDependNode(const ZObject& node) override {
        const ZFnDependencyNode target(node);
        m_offset = target.findPlug("offset", true);
        addPlugToManipConversionCallback(
            ZFnFreePointTriadManip(move).pointIndex(),
            static_cast<plugToManipConversionCallback>(&TestManip::pointFromOffset));
        addManipToPlugConversionCallback(
            m_offset, static_cast<manipToPlugConversionCallback>(&TestManip::offsetFromPoint));
        ZFnRotateManip(rotate).connectToRotationPlug(target.findPlug("turn", true));
        ZFnRotateManip(rotate).connectToRotationCenterPlug(target.findPlug("centre", true));
        ZFnScaleManip(scale).connectToScalePlug(target.findPlug("size", true));
        finishAddingManips();
        return ZPxManipContainer::connectToDependNode(node);
    }

    ZObject move, rotate, scale;

private:
    ZManipData pointFromOffset(unsigned int) {
        return ZPoint(m_offset.child(0).asDouble() * 2, m_offset.child(1).asDouble() * 2,
                      m_offset.child(2).asDouble() * 2);
    }
    ZManipData offsetFromPoint(unsigned int) {
        ZPoint point;
        getConverterManipValue(ZFnFreePointTriadManip(move).pointIndex(), point);
        return ZVector(point.x / 2, point.y / 2, point.z / 2);
    }
    ZPlug m_offset;
};

void registerTypes() {
    oz::NodeTypeRegistry& registry = oz::NodeTypeRegistry::instance();
    if (registry.find("manipTarget"))
        return;
    oz::NodeTypeInfo target;
    target.name = "manipTarget";
    target.id = ZTypeId(0x7e571001u);
    target.creator = [] {
        return new Target;
    };
    target.initializer = Target::initialize;
    ZString error;
    ASSERT_TRUE(registry.registerType(std::move(target), &error)) << error.asChar();
    oz::NodeTypeInfo manip;
    manip.name = "testManip";
    manip.id = ZTypeId(0x7e571002u);
    manip.kind = ZPxNode::kManipContainer;
    manip.creator = [] {
        return new TestManip;
    };
    ASSERT_TRUE(registry.registerType(std::move(manip), &error)) << error.asChar();
}

constexpr double kRadians = 3.141592653589793 / 180;

ZVector triple(const ZPlug& plug) {
    return {plug.child(0).asDouble(), plug.child(1).asDouble(), plug.child(2).asDouble()};
}

void setTriple(const ZPlug& plug, double x, double y, double z) {
    plug.child(0).setValue(x);
    plug.child(1).setValue(y);
    plug.child(2).setValue(z);
}

void expectNear(const ZVector& actual, const ZVector& expected) {
    EXPECT_NEAR(actual.x, expected.x, 1e-9);
    EXPECT_NEAR(actual.y, expected.y, 1e-9);
    EXPECT_NEAR(actual.z, expected.z, 1e-9);
}

class Manipulators : public ::testing::Test {
protected:
    void SetUp() override {
        oz::Graph::instance().clear();
        registerTypes();
        target = ZFnDependencyNode().create("manipTarget", "target1");
        manip = static_cast<TestManip*>(ZPxManipContainer::newManipulator("testManip", manipObject));
        ASSERT_NE(manip, nullptr);
    }
    void TearDown() override { oz::Graph::instance().clear(); }

    ZPlug plug(const char* name) const { return ZFnDependencyNode(target).findPlug(name, true); }

    ZObject target;
    ZObject manipObject;
    TestManip* manip = nullptr;
};

TEST_F(Manipulators, NewManipulatorMakesTheContainerWithItsChildren) {
    EXPECT_TRUE(manipObject.hasFn(ZFn::kPluginManipContainer));
    EXPECT_EQ(ZFnFreePointTriadManip(manip->move).name(), "move");
    EXPECT_TRUE(ZFnRotateManip().hasObj(manip->rotate));
    EXPECT_FALSE(ZFnRotateManip().hasObj(manip->scale));
    EXPECT_NE(ZFnRotateManip(manip->rotate).rotationIndex(), ZFnScaleManip(manip->scale).scaleIndex());

    ZObject none;
    ZStatus status;
    EXPECT_EQ(ZPxManipContainer::newManipulator("manipTarget", none, &status), nullptr);
    EXPECT_FALSE(status) << "not a container type";
    EXPECT_TRUE(none.isNull());
    EXPECT_EQ(ZPxManipContainer::newManipulator("noSuchType", none, &status), nullptr);
}

TEST_F(Manipulators, HandlesStartFromTheirPlugsAndDragsSetThePlugsBack) {
    setTriple(plug("offset"), 1, 2, 3);
    setTriple(plug("size"), 2, 2, 2);
    ASSERT_TRUE(manip->connectToDependNode(target));
    EXPECT_EQ(manip->connectedNode(), target);
    EXPECT_EQ(ZVector(ZFnFreePointTriadManip(manip->move).point()), ZVector(2, 4, 6))
        << "through the conversion";
    EXPECT_EQ(ZFnScaleManip(manip->scale).scaleValue(), ZVector(2, 2, 2));

    ZDGModifier move;
    ASSERT_TRUE(oz::ui::dragMove(*manip, ZVector(0, 2, 0), move));
    EXPECT_EQ(triple(plug("offset")), ZVector(1, 3, 3));
    ZDGModifier scale;
    ZFnScaleManip(manip->scale).setSnapMode(false);
    ASSERT_TRUE(oz::ui::dragScale(*manip, ZVector(1.5, 1, 0.5), scale));
    EXPECT_EQ(triple(plug("size")), ZVector(3, 2, 1));
    EXPECT_EQ(triple(plug("offset")), ZVector(1, 3, 3)) << "a scale leaves the offset alone";

    ASSERT_TRUE(scale.undoIt());
    ASSERT_TRUE(move.undoIt());
    EXPECT_EQ(triple(plug("offset")), ZVector(1, 2, 3));
    EXPECT_EQ(triple(plug("size")), ZVector(2, 2, 2));
}

TEST_F(Manipulators, ADragStartsFromWhatThePlugsHoldNow) {
    ASSERT_TRUE(manip->connectToDependNode(target));
    setTriple(plug("offset"), 5, 0, 0);
    ZDGModifier modifier;
    ASSERT_TRUE(oz::ui::dragMove(*manip, ZVector(2, 0, 0), modifier));
    EXPECT_EQ(triple(plug("offset")), ZVector(6, 0, 0));
    EXPECT_EQ(ZVector(ZFnFreePointTriadManip(manip->move).point()), ZVector(12, 0, 0));
}

TEST_F(Manipulators, RotationsComposeAboutWorldOrHandleAxes) {
    ASSERT_TRUE(manip->connectToDependNode(target));
    ZFnRotateManip rotate(manip->rotate);
    ASSERT_TRUE(rotate.setRotateMode(ZFnRotateManip::kWorldSpace));
    ZDGModifier first, second;
    ASSERT_TRUE(oz::ui::dragRotate(*manip, ZVector(0, 0, 1), 90, first));
    expectNear(triple(plug("turn")), ZVector(0, 0, 90));
    // Then a quarter turn about the world's Y carries the handle's Z axis
    // (still the world's Z) onto X.
    ASSERT_TRUE(oz::ui::dragRotate(*manip, ZVector(0, 1, 0), 90, second));
    expectNear(ZVector(0, 0, 1) * ZEulerRotation(triple(plug("turn")) * kRadians).asMatrix(),
               ZVector(1, 0, 0));

    // About the handle's own Y (the world's X after the first turn) instead,
    // Z goes onto the world's Y.
    ASSERT_TRUE(second.undoIt());
    ASSERT_TRUE(rotate.setRotateMode(ZFnRotateManip::kObjectSpace));
    ZDGModifier local;
    ASSERT_TRUE(oz::ui::dragRotate(*manip, ZVector(0, 1, 0), 90, local));
    expectNear(ZVector(0, 0, 1) * ZEulerRotation(triple(plug("turn")) * kRadians).asMatrix(),
               ZVector(0, 1, 0));
    EXPECT_FALSE(rotate.setRotateMode(static_cast<ZFnRotateManip::RotateMode>(7)));
}

TEST_F(Manipulators, SnappingRoundsScalesToTheIncrement) {
    setTriple(plug("size"), 1, 1, 1);
    ASSERT_TRUE(manip->connectToDependNode(target));
    ZFnScaleManip scale(manip->scale);
    EXPECT_TRUE(scale.isSnapModeOn());
    ASSERT_TRUE(scale.setSnapIncrement(0.5));
    ZDGModifier modifier;
    ASSERT_TRUE(oz::ui::dragScale(*manip, ZVector(1.3, 1.2, 2.9), modifier));
    EXPECT_EQ(triple(plug("size")), ZVector(1.5, 1, 3));
    EXPECT_FALSE(scale.setSnapIncrement(0));
}

TEST_F(Manipulators, BadDragsAndDeadHandlesFailCleanly) {
    ASSERT_TRUE(manip->connectToDependNode(target));
    ZDGModifier modifier;
    EXPECT_EQ(oz::ui::dragMove(*manip, ZVector(std::nan(""), 0, 0), modifier), ZStatus::kInvalidParameter);
    EXPECT_EQ(oz::ui::dragRotate(*manip, ZVector(), 10, modifier), ZStatus::kInvalidParameter);
    EXPECT_EQ(triple(plug("offset")), ZVector());

    // The handles outlive their container only as empty objects.
    const ZObject handle = manip->move;
    ZDGModifier remove;
    remove.deleteNode(manipObject);
    ASSERT_TRUE(remove.doIt());
    oz::Graph::instance().clear();
    ZStatus status;
    ZFnFreePointTriadManip(handle).point(&status);
    EXPECT_FALSE(status);
    EXPECT_FALSE(ZFnFreePointTriadManip(handle).setPoint(ZPoint(1, 2, 3)));
}

} // namespace
