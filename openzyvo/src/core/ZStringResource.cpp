#include <OpenZyvo/ZStringResource.h>
#include <fstream>
#include <map>
#include <mutex>
#include <set>
#include <sstream>

namespace {

struct Table {
    std::mutex mutex;
    std::set<std::string> registered;
    std::map<std::string, std::string> translations;
};

Table& table() {
    static Table instance;
    return instance;
}

std::string fullKey(const ZStringResourceId& id) {
    return id.pluginId().asStdString() + "." + id.key().asStdString();
}

std::string unescape(std::string_view text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\\' && i + 1 < text.size()) {
            const char next = text[++i];
            out += next == 'n' ? '\n' : (next == 't' ? '\t' : next);
        } else {
            out += text[i];
        }
    }
    return out;
}

} // namespace

ZStatus ZStringResource::registerString(const ZStringResourceId& id) {
    if (id.key().isEmpty())
        return ZStatus::kInvalidParameter;
    std::lock_guard lock(table().mutex);
    table().registered.insert(fullKey(id));
    return ZStatus::kSuccess;
}

bool ZStringResource::isRegistered(const ZStringResourceId& id) {
    std::lock_guard lock(table().mutex);
    return table().registered.count(fullKey(id)) != 0;
}

ZString ZStringResource::getString(const ZStringResourceId& id, ZStatus& status) {
    status = ZStatus::kSuccess;
    std::lock_guard lock(table().mutex);
    const auto found = table().translations.find(fullKey(id));
    return found == table().translations.end() ? id.defaultText() : ZString(found->second);
}

ZStatus ZStringResource::loadTranslation(const ZString& tableText) {
    std::istringstream lines(tableText.asStdString());
    std::map<std::string, std::string> parsed;
    std::string line;
    while (std::getline(lines, line)) {
        const ZString trimmed = ZString(line).trimmed();
        if (trimmed.isEmpty() || trimmed.asStdString()[0] == '#')
            continue;
        const int equals = trimmed.index('=');
        if (equals <= 0)
            return ZStatus::kInvalidParameter;
        const ZString key = trimmed.substring(0, equals - 1).trimmed();
        const ZString text = trimmed.substring(equals + 1, static_cast<int>(trimmed.length()) - 1).trimmed();
        parsed[key.asStdString()] = unescape(text.view());
    }
    std::lock_guard lock(table().mutex);
    for (auto& [key, text] : parsed)
        table().translations[key] = std::move(text);
    return ZStatus::kSuccess;
}

ZStatus ZStringResource::loadTranslationFile(const ZString& path) {
    std::ifstream in(path.asStdString());
    if (!in)
        return ZStatus::kNotFound;
    std::ostringstream content;
    content << in.rdbuf();
    return loadTranslation(content.str());
}

void ZStringResource::clearTranslations() {
    std::lock_guard lock(table().mutex);
    table().translations.clear();
}
