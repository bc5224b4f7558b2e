#include "scene/ReadContext.h"

#include "graph/Node.h"

namespace oz::scene {

namespace {

ReadContext* g_active = nullptr;

} // namespace

ReadContext::ReadContext()
    : m_previous(g_active) {
    g_active = this;
}

ReadContext::~ReadContext() {
    finishConstructions();
    g_active = m_previous;
}

ReadContext* ReadContext::active() {
    return g_active;
}

void ReadContext::deferConstruction(std::shared_ptr<Node> node) {
    m_deferred.push_back(std::move(node));
}

void ReadContext::finishConstructions() {
    // A postConstructor may create nodes of its own; those join the list.
    for (std::size_t i = 0; i < m_deferred.size(); ++i) {
        const std::shared_ptr<Node> node = m_deferred[i];
        if (node->state == Node::State::Live && node->user)
            node->user->postConstructor();
    }
    m_deferred.clear();
}

void ReadContext::skipNode(std::string name) {
    m_skipped.insert(std::move(name));
}

bool ReadContext::isSkipped(std::string_view name) const {
    return !m_skipped.empty() && m_skipped.count(std::string(name)) != 0;
}

} // namespace oz::scene
