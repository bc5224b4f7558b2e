#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZString.h>

// Base of tool contexts, made by context commands (ZPxContextCommand::makeObj)
// and owned by the host's tool side from then on. The host calls toolOnSetup
// when the tool becomes the current one (setToolTo) and toolOffCleanup when
// another tool replaces it or the context goes away.
class OZ_API ZPxContext {
public:
    ZPxContext();
    virtual ~ZPxContext();
    ZPxContext(const ZPxContext&) = delete;
    ZPxContext& operator=(const ZPxContext&) = delete;

    virtual void toolOnSetup();
    virtual void toolOffCleanup();
    // The name of the tool's class, under which the host keeps its settings panel.
    virtual void getClassName(ZString& name) const;

    ZStatus setTitleString(const ZString& title);
    ZStatus setHelpString(const ZString& help);
    // The icon file shown for the tool.
    ZStatus setImage(const ZString& image);
    ZString titleString() const;
    ZString helpString() const;
    ZString image() const;

private:
    ZString m_title;
    ZString m_help;
    ZString m_image;
};
