#include "fonts/FontScanner.h"

#include "fonts/FontFileEntries.h"

#include <algorithm>
#include <filesystem>
#include <set>
#include <system_error>

namespace type {

namespace {

namespace fs = std::filesystem;

// Linux font folders are trees (one sub-folder per package or foundry); the
// font folders of other systems are flat.
#if defined(__linux__)
constexpr bool kRecurseIntoFolders = true;
#else
constexpr bool kRecurseIntoFolders = false;
#endif

// The directory iterator never yields "." and "..", so they need no skipping.
std::vector<fs::path> sortedEntries(const fs::path& folder) {
    std::vector<fs::path> entries;
    std::error_code error;
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error))
        entries.push_back(it->path());
    std::sort(entries.begin(), entries.end(), [](const fs::path& a, const fs::path& b) {
        return a.filename().native() < b.filename().native();
    });
    return entries;
}

class FolderScan {
public:
    FolderScan(FontCatalogue& catalogue, const FontScanHooks& hooks)
        : m_catalogue(catalogue)
        , m_hooks(hooks) {}

    FontScanResult scanListed(const fs::path& folder) {
        if (!firstVisit(folder))
            return FontScanResult::Completed;
        const std::vector<fs::path> entries = sortedEntries(folder);
        if (entries.empty())
            return FontScanResult::Completed;
        if (m_hooks.folderStarted)
            m_hooks.folderStarted(ZString(folder.string()));
        const FontScanResult result = scanEntries(entries);
        if (m_hooks.folderFinished)
            m_hooks.folderFinished();
        return result;
    }

private:
    // Symbolic links can make a folder reachable twice, or from inside itself.
    bool firstVisit(const fs::path& folder) {
        std::error_code error;
        const fs::path canonical = fs::canonical(folder, error);
        return !error && m_visited.insert(canonical).second;
    }

    FontScanResult scanEntries(const std::vector<fs::path>& entries) {
        for (const fs::path& entry : entries) {
            if (m_hooks.interruptRequested && m_hooks.interruptRequested())
                return FontScanResult::Interrupted;
            std::error_code error;
            const fs::file_status status = fs::status(entry, error);
            if (fs::is_regular_file(status)) {
                for (const FontEntry& font : readFontFileEntries(ZString(entry.string())))
                    m_catalogue.add(font);
            } else if (kRecurseIntoFolders && fs::is_directory(status) && firstVisit(entry)) {
                if (scanEntries(sortedEntries(entry)) == FontScanResult::Interrupted)
                    return FontScanResult::Interrupted;
            }
        }
        return FontScanResult::Completed;
    }

    FontCatalogue& m_catalogue;
    const FontScanHooks& m_hooks;
    std::set<fs::path> m_visited;
};

} // namespace

FontScanResult scanFontFolders(const std::vector<ZString>& folders, FontCatalogue& catalogue,
                               const FontScanHooks& hooks) {
    FolderScan scan(catalogue, hooks);
    for (const ZString& folder : folders) {
        if (scan.scanListed(fs::path(folder.asStdString())) == FontScanResult::Interrupted)
            return FontScanResult::Interrupted;
    }
    return FontScanResult::Completed;
}

} // namespace type
