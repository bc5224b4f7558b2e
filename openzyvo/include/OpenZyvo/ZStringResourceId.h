#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZString.h>

// Names a localisable text: the plug-in's resource group, a key and the
// English default.
class OZ_API ZStringResourceId {
public:
    ZStringResourceId() = default;
    ZStringResourceId(const ZString& pluginId, const ZString& key, const ZString& defaultText)
        : m_pluginId(pluginId)
        , m_key(key)
        , m_default(defaultText) {}

    const ZString& pluginId() const { return m_pluginId; }
    const ZString& key() const { return m_key; }
    const ZString& defaultText() const { return m_default; }

private:
    ZString m_pluginId, m_key, m_default;
};
