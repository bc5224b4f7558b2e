#include "textsource/AnimatedTextKeys.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <limits>
#include <ostream>

namespace type {

std::vector<AnimatedTextKey> parseAnimatedTextKeys(std::string_view json, std::ostream& diagnostics) {
    std::vector<AnimatedTextKey> keys;
    if (json.empty())
        return keys;
    const bool fits = json.size() <= static_cast<std::size_t>(std::numeric_limits<int>::max());
    const QJsonDocument document =
        fits ? QJsonDocument::fromJson(QByteArray(json.data(), static_cast<int>(json.size())))
             : QJsonDocument();
    if (!document.isArray()) {
        diagnostics << "Type JSON Error" << std::endl;
        return keys;
    }
    for (const QJsonValue& element : document.array()) {
        if (!element.isObject())
            continue;
        const QJsonObject key = element.toObject();
        const QJsonValue frame = key.value("frame");
        keys.push_back(
            {frame.isDouble() ? frame.toDouble() : 0.0, key.value("hex").toString().toStdString()});
    }
    return keys;
}

std::string keyedText(std::vector<AnimatedTextKey> keys, double time) {
    std::sort(keys.begin(), keys.end(),
              [](const AnimatedTextKey& a, const AnimatedTextKey& b) { return a.frame < b.frame; });
    std::string text;
    for (const AnimatedTextKey& key : keys) {
        if (time > key.frame)
            text = key.hex;
    }
    return text;
}

} // namespace type
