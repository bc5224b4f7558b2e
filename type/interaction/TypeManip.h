#pragma once

#include <OpenZyvo/ZDagPath.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvoUI/ZPxManipContainer.h>
#include <optional>

namespace type {

struct ElementBox;

// The "typeManip" manipulator container: move, rotate and scale handles that
// edit the adjustments ("positionAdjust", "rotationAdjust", "scaleAdjust") of
// the character, word or line of a type node that "manipulateId" and
// "manipulatorMode" name. The move handle stands at the centre of the
// element's box plus its offset, in world space; the scale handle's factors
// are the stored scales plus 1 (a stored scale of 0 leaves the element as it is).
class typeManip : public ZPxManipContainer {
public:
    static constexpr unsigned int kTypeId = 0x11BE17;
    static constexpr const char* kTypeName = "typeManip";

    static void* creator();
    static ZStatus initialize();

    ZStatus createChildren() override;
    ZStatus connectToDependNode(const ZObject& node) override;

private:
    ZManipData pointFromPlugs(unsigned int manipIndex);
    ZManipData scaleCentreFromPlugs(unsigned int manipIndex);
    ZManipData scaleFromPlugs(unsigned int manipIndex);
    ZManipData positionToPlug(unsigned int plugIndex);
    ZManipData scaleToPlug(unsigned int plugIndex);

    // The element being edited, in the text's space; nothing when the type
    // node's arrays do not describe it.
    std::optional<ElementBox> editedElement() const;
    // The text's space to the world and back.
    ZPoint toWorld(const ZPoint& point) const;
    ZPoint toText(const ZPoint& point) const;

    ZObject m_moveManip;
    ZObject m_rotateManip;
    ZObject m_scaleManip;
    ZObject m_typeNode;
    ZDagPath m_path;
    ZPlug m_positionPlug;
    ZPlug m_scalePlug;
};

} // namespace type
