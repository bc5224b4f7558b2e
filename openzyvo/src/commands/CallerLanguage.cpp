#include "commands/CallerLanguage.h"

namespace oz::cmd {

namespace {
thread_local Language current = Language::Command;
}

Language callerLanguage() {
    return current;
}

CallerLanguageScope::CallerLanguageScope(Language language)
    : m_previous(current) {
    current = language;
}

CallerLanguageScope::~CallerLanguageScope() {
    current = m_previous;
}

} // namespace oz::cmd
