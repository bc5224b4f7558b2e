#include "graph/NodeType.h"

#include <algorithm>
#include <atomic>

namespace oz {

bool NodeType::hasFn(ZFn::Type type) const {
    if (type == ZFn::kBase || type == ZFn::kNamedObject || type == ZFn::kDependencyNode || type == apiType)
        return true;
    if (type == ZFn::kDagNode && dag)
        return true;
    return std::find(fnTypes.begin(), fnTypes.end(), type) != fnTypes.end();
}

bool NodeType::hasAttribute(const Attribute* attribute) const {
    return attribute && rootIndex.count(attribute->root()) != 0;
}

const Attribute* NodeType::findAttribute(const ZString& name) const {
    auto it = byName.find(name);
    return it == byName.end() ? nullptr : it->second;
}

bool NodeType::clashes(const Attribute& attribute) const {
    std::unordered_map<ZString, const Attribute*> fresh;
    bool clash = false;
    attribute.visit([&](const Attribute* a) {
        for (const ZString* name : {&a->longName, &a->shortName}) {
            if (name->isEmpty())
                continue;
            if (byName.count(*name))
                clash = true;
            auto [it, inserted] = fresh.emplace(*name, a);
            if (!inserted && it->second != a)
                clash = true;
        }
    });
    return clash;
}

ZStatus NodeType::addRoot(const std::shared_ptr<Attribute>& attribute) {
    if (!attribute || attribute->parent || attribute->attachedToNode || rootIndex.count(attribute.get()))
        return ZStatus::kInvalidParameter;
    if (attribute->longName.isEmpty() || clashes(*attribute))
        return ZStatus::kInvalidParameter;
    attribute->setFrozen();
    rootIndex.emplace(attribute.get(), static_cast<unsigned int>(roots.size()));
    roots.push_back(attribute);
    attribute->visit([&](const Attribute* a) {
        all.push_back(a);
        byName.emplace(a->longName, a);
        if (!a->shortName.isEmpty())
            byName.emplace(a->shortName, a);
    });
    m_targets.clear();
    m_sources.clear();
    m_targetsVersion = nextTargetsVersion();
    return ZStatus::kSuccess;
}

ZStatus NodeType::addAffects(const Attribute* whenChanges, const Attribute* isAffected) {
    if (!hasAttribute(whenChanges) || !hasAttribute(isAffected))
        return ZStatus::kInvalidParameter;
    auto& out = affects[whenChanges];
    if (std::find(out.begin(), out.end(), isAffected) == out.end()) {
        out.push_back(isAffected);
        affectedBy[isAffected].push_back(whenChanges);
    }
    m_targets.clear();
    m_sources.clear();
    m_targetsVersion = nextTargetsVersion();
    return ZStatus::kSuccess;
}

bool NodeType::isA(const ZString& typeName) const {
    return name == typeName || std::find(lineage.begin(), lineage.end(), typeName) != lineage.end();
}

ZStatus NodeType::inherit(const NodeType& parent) {
    for (const auto& root : parent.roots) {
        if (rootIndex.count(root.get()))
            continue;
        if (clashes(*root))
            return ZStatus::kInvalidParameter;
        rootIndex.emplace(root.get(), static_cast<unsigned int>(roots.size()));
        roots.push_back(root);
        root->visit([&](const Attribute* a) {
            all.push_back(a);
            byName.emplace(a->longName, a);
            if (!a->shortName.isEmpty())
                byName.emplace(a->shortName, a);
        });
    }
    for (const auto& [from, targets] : parent.affects)
        for (const Attribute* to : targets)
            addAffects(from, to);
    for (const Attribute* a : parent.timeDriven)
        if (std::find(timeDriven.begin(), timeDriven.end(), a) == timeDriven.end())
            timeDriven.push_back(a);
    for (const ZString& ancestor : parent.lineage)
        if (std::find(lineage.begin(), lineage.end(), ancestor) == lineage.end())
            lineage.push_back(ancestor);
    if (std::find(lineage.begin(), lineage.end(), parent.name) == lineage.end())
        lineage.push_back(parent.name);
    m_targets.clear();
    m_sources.clear();
    m_targetsVersion = nextTargetsVersion();
    return ZStatus::kSuccess;
}

std::uint64_t NodeType::nextTargetsVersion() {
    static std::atomic<std::uint64_t> next{1};
    return next++;
}

const std::vector<const Attribute*>& NodeType::dirtyTargets(const Attribute* attribute) const {
    Attribute::TypeLookup& lookup = attribute->lookup;
    if (lookup.targetsType == this && lookup.targetsVersion == m_targetsVersion)
        return *lookup.targets;
    lookup.targetsType = this;
    lookup.targetsVersion = m_targetsVersion;
    auto cached = m_targets.find(attribute);
    if (cached != m_targets.end()) {
        lookup.targets = &cached->second;
        return cached->second;
    }
    std::vector<const Attribute*> out;
    auto collect = [&](const Attribute* source) {
        auto it = affects.find(source);
        if (it == affects.end())
            return;
        for (const Attribute* target : it->second) {
            const Attribute* whole = target->outermostArray();
            if (std::find(out.begin(), out.end(), whole) == out.end())
                out.push_back(whole);
        }
    };
    for (const Attribute* a = attribute->parent; a; a = a->parent)
        collect(a);
    attribute->visit(collect);
    lookup.targets = &m_targets.emplace(attribute, std::move(out)).first->second;
    return *lookup.targets;
}

const std::vector<const Attribute*>& NodeType::affectingFamily(const Attribute* attribute) const {
    auto cached = m_sources.find(attribute);
    if (cached != m_sources.end())
        return cached->second;
    std::vector<const Attribute*> out;
    auto collect = [&](const Attribute* target) {
        auto it = affectedBy.find(target);
        if (it == affectedBy.end())
            return;
        for (const Attribute* source : it->second)
            if (std::find(out.begin(), out.end(), source) == out.end())
                out.push_back(source);
    };
    for (const Attribute* a = attribute->parent; a; a = a->parent)
        collect(a);
    attribute->visit(collect);
    return m_sources.emplace(attribute, std::move(out)).first->second;
}

} // namespace oz
