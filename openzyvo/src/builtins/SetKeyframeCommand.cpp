#include "anim/Keyframe.h"
#include "builtins/ResultValue.h"
#include "commands/BuiltinCommand.h"
#include "commands/ParsedCommand.h"
#include "graph/PlugRef.h"
#include "scene/CommandMessages.h"
#include "scene/SceneLookup.h"
#include "scene/UnitConversion.h"

#include <OpenZyvo/ZArgDatabase.h>
#include <OpenZyvo/ZArgList.h>
#include <OpenZyvo/ZStringArray.h>
#include <OpenZyvoAnim/ZAnimControl.h>
#include <OpenZyvoAnim/ZFnAnimCurve.h>
#include <optional>

namespace oz::builtins {

using namespace scene;
namespace {

constexpr const char* kName = "setKeyframe";

// setKeyframe [-t time] [-v value] [-at attribute]... <plugs or nodes...>:
// keys each plug (each named attribute of a node, or all its keyable ones)
// at the time (the current time by default) with its value, or with -value
// (in the user's units) instead. A plug no curve drives yet gets one.
// Returns how many plugs were keyed; undo restores the curves as they were.
class SetKeyframeCommand : public cmd::ParsedCommand {
public:
    static ZSyntax newSyntax() {
        ZSyntax syntax;
        syntax.addFlag("-t", "-time", ZSyntax::kTime);
        syntax.addFlag("-v", "-value", ZSyntax::kDouble);
        syntax.addFlag("-at", "-attribute", ZSyntax::kString);
        syntax.makeFlagMultiUse("-attribute");
        syntax.setObjectType(ZSyntax::kStringObjects);
        return syntax;
    }

    ZStatus run(const ZArgDatabase& database, const ZStringArray& objects) override {
        m_time = database.isFlagSet("-time") ? ZTime(database.flagArgumentDouble("-time", 0), ZTime::uiUnit())
                                             : ZAnimControl::currentTime();
        if (database.isFlagSet("-value"))
            m_value = database.flagArgumentDouble("-value", 0);
        if (!collectPlugs(database, objects))
            return ZStatus::kInvalidParameter;
        if (m_plugs.empty()) {
            reportError(kName, "nothing to key: name plugs or nodes with keyable attributes");
            return ZStatus::kInvalidParameter;
        }
        return key();
    }

    ZStatus undoIt() override { return anim::undoKeyframes(m_changes); }
    ZStatus redoIt() override { return key(); }
    bool isUndoable() const override { return true; }

private:
    bool collectPlugs(const ZArgDatabase& database, const ZStringArray& objects) {
        std::vector<std::string> attributes;
        for (unsigned int use = 0; use < database.numberOfFlagUses("-attribute"); ++use) {
            ZArgList list;
            database.getFlagArgumentList("-attribute", use, list);
            attributes.push_back(list.asString(0).asStdString());
        }
        std::vector<std::string> names;
        for (unsigned int i = 0; i < objects.length(); ++i)
            names.push_back(objects[i].asStdString());
        if (names.empty())
            for (Node* node : selectedNodes())
                names.push_back(node->name.asStdString());
        for (const std::string& name : names) {
            std::string error;
            if (name.find('.') != std::string::npos || !attributes.empty()) {
                const std::vector<std::string> plugNames = name.find('.') != std::string::npos
                                                               ? std::vector<std::string>{name}
                                                               : withAttributes(name, attributes);
                for (const std::string& plugName : plugNames) {
                    ZPlug plug;
                    if (!findPlug(plugName, plug, error)) {
                        reportError(kName, error);
                        return false;
                    }
                    m_plugs.push_back(plug);
                }
                continue;
            }
            Node* node = findNode(name);
            if (!node) {
                reportError(kName, noObjectMatches(name));
                return false;
            }
            for (unsigned int i = 0; i < node->rootCount(); ++i)
                if (const auto& root = node->rootAttribute(i);
                    root && root->flags.keyable && !root->flags.array)
                    m_plugs.push_back(PlugAccess::make(*node, root.get()));
        }
        return true;
    }

    static std::vector<std::string> withAttributes(const std::string& node,
                                                   const std::vector<std::string>& attributes) {
        std::vector<std::string> out;
        for (const std::string& attribute : attributes)
            out.push_back(node + "." + attribute);
        return out;
    }

    ZStatus key() {
        m_changes.clear();
        for (const ZPlug& plug : m_plugs) {
            const ZStatus status = anim::setKeyframe(plug, m_time, &m_changes);
            if (!status) {
                anim::undoKeyframes(m_changes);
                m_changes.clear();
                reportError(kName, quoted(plug.name().asStdString()) +
                                       " cannot be keyed (it is not keyable, or another node drives it)");
                return status;
            }
            if (m_value && !setKeyValue(plug)) {
                anim::undoKeyframes(m_changes);
                m_changes.clear();
                return ZStatus::kInvalidParameter;
            }
        }
        setResultValue(static_cast<int>(m_plugs.size()));
        return ZStatus::kSuccess;
    }

    // Gives the key just set (of each keyed leaf of a compound) the value of -value.
    bool setKeyValue(const ZPlug& plug) {
        const unsigned int children = plug.numChildren();
        for (unsigned int i = 0; i < children; ++i)
            if (!setKeyValue(plug.child(i)))
                return false;
        if (children)
            return true;
        ZFnAnimCurve curve(plug);
        unsigned int index = 0;
        if (!curve.find(m_time, index) ||
            !curve.setValue(index, fromUiUnits(*PlugAccess::get(plug)->leaf(), *m_value))) {
            reportError(kName,
                        "the key of " + quoted(plug.name().asStdString()) + " could not take the value");
            return false;
        }
        return true;
    }

    ZTime m_time;
    std::optional<double> m_value;
    std::vector<ZPlug> m_plugs;
    std::vector<anim::KeyframeChange> m_changes;
};

const cmd::BuiltinCommand registration(
    kName, [] { return std::make_unique<SetKeyframeCommand>(); }, SetKeyframeCommand::newSyntax);

} // namespace
} // namespace oz::builtins
