#pragma once

#include <OpenZyvoRender/ZDrawRegistry.h>
#include <mutex>
#include <string>
#include <vector>

namespace oz::plugins {

// The draw override creators behind ZHWRender::ZDrawRegistry, each with the
// plug-in that registered it.
class DrawOverrideTable {
public:
    using Creator = ZHWRender::ZDrawRegistry::DrawOverrideCreator;

    static DrawOverrideTable& instance();

    ZStatus add(const std::string& classification, const std::string& registrant, Creator creator,
                const std::string& owner);
    ZStatus remove(const std::string& classification, const std::string& registrant);
    // Returns the (classification, registrant) pairs removed.
    std::vector<std::pair<std::string, std::string>> removeOwnedBy(const std::string& owner);

    // The creator registered last for the classification, or null.
    Creator find(const std::string& classification) const;

private:
    DrawOverrideTable() = default;

    struct Entry {
        std::string classification;
        std::string registrant;
        Creator creator;
        std::string owner;
    };

    mutable std::mutex m_mutex;
    std::vector<Entry> m_entries;
};

} // namespace oz::plugins
