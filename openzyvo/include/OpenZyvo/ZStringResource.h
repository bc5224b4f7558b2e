#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZString.h>
#include <OpenZyvo/ZStringResourceId.h>

// The host's table of localisable texts. A text reads as its default until a
// translation for its (group, key) is loaded.
class OZ_API ZStringResource {
public:
    static ZStatus registerString(const ZStringResourceId& id);
    static ZString getString(const ZStringResourceId& id, ZStatus& status);
    static bool isRegistered(const ZStringResourceId& id);

    // Loads translations from text lines of the form  group.key = text
    // (lines starting with '#' and blank lines are ignored; "\n" in a text
    // is a line break). Later loads override earlier ones.
    static ZStatus loadTranslation(const ZString& tableText);
    static ZStatus loadTranslationFile(const ZString& path);
    static void clearTranslations();
};
