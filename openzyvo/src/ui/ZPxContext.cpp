#include <OpenZyvoUI/ZPxContext.h>

ZPxContext::ZPxContext() = default;
ZPxContext::~ZPxContext() = default;

void ZPxContext::toolOnSetup() {}
void ZPxContext::toolOffCleanup() {}

void ZPxContext::getClassName(ZString& name) const {
    name = ZString();
}

ZStatus ZPxContext::setTitleString(const ZString& title) {
    m_title = title;
    return ZStatus::kSuccess;
}

ZStatus ZPxContext::setHelpString(const ZString& help) {
    m_help = help;
    return ZStatus::kSuccess;
}

ZStatus ZPxContext::setImage(const ZString& image) {
    m_image = image;
    return ZStatus::kSuccess;
}

ZString ZPxContext::titleString() const {
    return m_title;
}

ZString ZPxContext::helpString() const {
    return m_help;
}

ZString ZPxContext::image() const {
    return m_image;
}
