#include "scene/StoredValues.h"

#include "graph/Node.h"
#include "graph/ValueIO.h"
#include "scene/AttributeTypeNames.h"
#include "scene/DataText.h"
#include "scene/SceneText.h"
#include "scene/UnitConversion.h"

#include <cmath>

namespace oz::scene {

namespace {

bool isNumberLeaf(const Attribute& a) {
    return a.isNumberLike() && a.children.empty() && !a.flags.array;
}

bool isNumberCompound(const Attribute& a) {
    if (a.children.empty())
        return false;
    for (const auto& child : a.children)
        if (!isNumberLeaf(*child))
            return false;
    return true;
}

class ValueWriter {
public:
    ValueWriter(Node& node, std::string& out)
        : m_node(node)
        , m_out(out)
        , m_prefix("setAttr \"" + node.name.asStdString() + ".") {}

    void writeAll() {
        for (unsigned int i = 0; i < m_node.rootCount(); ++i) {
            const auto& root = m_node.rootAttribute(i);
            if (!root || i >= m_node.normal.roots.size() || !m_node.normal.roots[i])
                continue;
            Path path;
            path.push_back(PathEntry{root.get(), i, -1});
            visit(*root, *m_node.normal.roots[i], path, false);
        }
    }

private:
    // Whether a connection drives the plug, or a plug containing it.
    bool driven(const Path& path) const {
        for (const auto& c : m_node.incoming)
            if (covers(c->dst, path))
                return true;
        return false;
    }
    // Whether a connection drives a part of the plug.
    bool partlyDriven(const Path& path) const {
        for (const auto& c : m_node.incoming)
            if (related(c->dst, path))
                return true;
        return false;
    }

    void visit(const Attribute& a, const Slot& slot, Path& path, bool force) {
        if (!a.flags.storable || !a.flags.writable || a.kind == Attribute::Kind::Message || driven(path))
            return;
        if (a.flags.array && path.back().index < 0) {
            for (const auto& [index, element] : slot.elements) {
                path.back().index = static_cast<int>(index);
                instance(a, element, path, true);
            }
            path.back().index = -1;
            return;
        }
        instance(a, slot, path, force);
    }

    void instance(const Attribute& a, const Slot& slot, Path& path, bool force) {
        if (a.kind == Attribute::Kind::Typed) {
            if (slot.data && (force || differsFromDefault(a, slot)))
                typed(*slot.data, path);
            return;
        }
        if (a.isNumberLike() && a.children.empty()) {
            numbers(path, {&a}, std::vector<double>(slot.num.begin(), slot.num.begin() + a.componentCount()),
                    force);
            return;
        }
        if (isNumberCompound(a) && !partlyDriven(path)) {
            std::vector<const Attribute*> leaves;
            std::vector<double> values;
            for (std::size_t i = 0; i < a.children.size() && i < slot.children.size(); ++i) {
                leaves.push_back(a.children[i].get());
                values.push_back(slot.children[i].num[0]);
            }
            numbers(path, leaves, values, force);
            return;
        }
        for (std::size_t i = 0; i < a.children.size() && i < slot.children.size(); ++i) {
            path.push_back(PathEntry{a.children[i].get(), static_cast<unsigned int>(i), -1});
            visit(*a.children[i], slot.children[i], path, force);
            path.pop_back();
        }
    }

    // `leaves` holds one attribute per value, or a single one for a tuple.
    void numbers(const Path& path, const std::vector<const Attribute*>& leaves,
                 const std::vector<double>& values, bool force) {
        bool differs = force;
        for (std::size_t i = 0; i < values.size() && !differs; ++i) {
            const Attribute& leaf = *leaves[std::min(i, leaves.size() - 1)];
            const double fallback = leaf.defaultValue[leaves.size() == 1 ? i : 0];
            differs = !(values[i] == fallback) && !(std::isnan(values[i]) && std::isnan(fallback));
        }
        if (!differs)
            return;
        statement(path);
        for (std::size_t i = 0; i < values.size(); ++i)
            appendStoredNumber(m_out, *leaves[std::min(i, leaves.size() - 1)], values[i]);
        m_out += ";\n";
    }

    void typed(const Data& data, const Path& path) {
        std::string values;
        if (!formatData(data, values))
            return;
        statement(path);
        m_out += " -type \"";
        m_out += dataTypeName(data.dataType());
        m_out += '"';
        m_out += values;
        m_out += ";\n";
    }

    static bool differsFromDefault(const Attribute& a, const Slot& slot) {
        if (!a.defaultData)
            return true;
        std::string stored, fallback;
        return !formatData(*slot.data, stored) || !formatData(*a.defaultData, fallback) || stored != fallback;
    }

    void statement(const Path& path) {
        m_out += m_prefix;
        m_out += pathName(path, true, false).asStdString();
        m_out += '"';
    }

    Node& m_node;
    std::string& m_out;
    std::string m_prefix;
};

} // namespace

void appendStoredValues(Node& node, std::string& out) {
    ValueWriter(node, out).writeAll();
}

void appendStoredNumber(std::string& out, const Attribute& attribute, double stored) {
    if (attribute.isIntegral() && std::isfinite(stored)) {
        out += ' ';
        out += std::to_string(static_cast<long long>(stored));
        return;
    }
    const double shown = toUiUnits(attribute, stored);
    // Converting units can miss the stored value by a rounding step; a
    // neighbouring number of the user's unit may hit it exactly.
    double exact = shown;
    if (std::isfinite(shown) && normaliseNumber(attribute, fromUiUnits(attribute, shown)) != stored) {
        double up = shown, down = shown;
        for (int step = 0; step < 16; ++step) {
            up = std::nextafter(up, HUGE_VAL);
            down = std::nextafter(down, -HUGE_VAL);
            if (normaliseNumber(attribute, fromUiUnits(attribute, up)) == stored) {
                exact = up;
                break;
            }
            if (normaliseNumber(attribute, fromUiUnits(attribute, down)) == stored) {
                exact = down;
                break;
            }
        }
    }
    appendNumber(out, exact);
}

} // namespace oz::scene
