#pragma once

namespace oz::cmd {

// The scripting language the running command was called from. Commands that
// take a script of their own (evalDeferred) read it in the caller's language,
// as a host does: cmds.evalDeferred("...") from Python defers Python.
enum class Language { Command, Python };

Language callerLanguage();

// Makes `language` the caller's language for the commands run in its lifetime.
class CallerLanguageScope {
public:
    explicit CallerLanguageScope(Language language);
    ~CallerLanguageScope();
    CallerLanguageScope(const CallerLanguageScope&) = delete;
    CallerLanguageScope& operator=(const CallerLanguageScope&) = delete;

private:
    Language m_previous;
};

} // namespace oz::cmd
