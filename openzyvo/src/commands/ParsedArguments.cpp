#include "commands/ParsedArguments.h"

#include <set>

namespace oz::cmd {

const ParsedArguments::FlagUse* ParsedArguments::use(const std::string& name, unsigned int index) const {
    for (const FlagUse& flagUse : uses)
        if (flagUse.matches(name) && index-- == 0)
            return &flagUse;
    return nullptr;
}

unsigned int ParsedArguments::useCount(const std::string& name) const {
    unsigned int count = 0;
    for (const FlagUse& flagUse : uses)
        count += flagUse.matches(name) ? 1 : 0;
    return count;
}

unsigned int ParsedArguments::distinctFlags() const {
    std::set<std::string> names;
    for (const FlagUse& flagUse : uses)
        names.insert(flagUse.longName);
    return static_cast<unsigned int>(names.size());
}

namespace {

std::optional<Value> convert(ZSyntax::ZArgType type, const Value& value) {
    switch (type) {
    case ZSyntax::kBoolean:
        if (auto b = toBool(value))
            return Value(*b);
        break;
    case ZSyntax::kLong:
        if (auto i = toInt(value))
            return Value(*i);
        break;
    case ZSyntax::kUnsigned:
        if (auto i = toInt(value); i && *i >= 0)
            return Value(*i);
        break;
    case ZSyntax::kDouble:
    case ZSyntax::kDistance:
    case ZSyntax::kAngle:
    case ZSyntax::kTime:
        if (auto d = toDouble(value))
            return Value(*d);
        break;
    case ZSyntax::kString:
    case ZSyntax::kSelectionItem:
        if (auto s = toString(value))
            return Value(*s);
        break;
    default:
        break;
    }
    return std::nullopt;
}

std::string shown(const Value& value) {
    return isArray(value) ? std::string("a ") + typeName(value) : "'" + toText(value) + "'";
}

std::string plural(std::size_t count, const char* noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

class ArgumentReader {
public:
    ArgumentReader(const SyntaxData& syntax, const std::vector<ArgItem>& items)
        : m_syntax(syntax)
        , m_items(items) {}

    ParseOutcome run() {
        ParseOutcome outcome;
        ParsedArguments parsed;
        if (!readMode(parsed) || !readFlags(parsed) || !readPositionals(parsed)) {
            outcome.error = m_error;
            return outcome;
        }
        outcome.parsed = std::move(parsed);
        return outcome;
    }

private:
    bool fail(std::string message) {
        m_error = std::move(message);
        return false;
    }

    static const std::string& nameOf(const ArgItem& item) { return std::get<std::string>(item.value); }

    bool isQueryFlag(const std::string& name) const {
        return m_syntax.query && (name == "q" || name == "query");
    }
    bool isEditFlag(const std::string& name) const {
        return m_syntax.edit && (name == "e" || name == "edit");
    }

    // Query mode changes how many arguments the other flags take, wherever
    // -q stands, so the mode is settled first.
    bool readMode(ParsedArguments& parsed) {
        for (const ArgItem& item : m_items) {
            if (!item.isFlag)
                continue;
            parsed.query |= isQueryFlag(nameOf(item));
            parsed.edit |= isEditFlag(nameOf(item));
        }
        if (parsed.query && parsed.edit)
            return fail("query and edit cannot be used together");
        return true;
    }

    bool readFlags(ParsedArguments& parsed) {
        for (std::size_t i = 0; i < m_items.size(); ++i) {
            const ArgItem& item = m_items[i];
            if (!item.isFlag) {
                m_positionals.push_back(item.value);
                continue;
            }
            const std::string& name = nameOf(item);
            if (isQueryFlag(name) || isEditFlag(name))
                continue;
            const FlagSpec* definition = m_syntax.find(name);
            if (!definition)
                return fail("invalid flag '-" + name + "'");
            if (!definition->multiUse && parsed.use(definition->longName))
                return fail("flag '-" + name + "' may be used only once");
            ParsedArguments::FlagUse flagUse{definition->shortName, definition->longName, {}};
            if (!readFlagArguments(*definition, name, parsed.query, i, flagUse))
                return false;
            parsed.uses.push_back(std::move(flagUse));
        }
        return true;
    }

    bool readFlagArguments(const FlagSpec& definition, const std::string& name, bool query, std::size_t& i,
                           ParsedArguments::FlagUse& flagUse) {
        if (query && !definition.queryWithArgs)
            return true;
        const std::size_t wanted = definition.argTypes.size();
        std::size_t available = 0;
        while (available < wanted && i + 1 + available < m_items.size() && !m_items[i + 1 + available].isFlag)
            ++available;
        if (available < wanted) {
            if (query && definition.queryArgsOptional && available == 0)
                return true;
            return fail("flag '-" + name + "' needs " + plural(wanted, "argument") + ", found " +
                        std::to_string(available));
        }
        for (std::size_t k = 0; k < wanted; ++k) {
            const Value& given = m_items[i + 1 + k].value;
            auto converted = convert(definition.argTypes[k], given);
            if (!converted)
                return fail("flag '-" + name + "' expects " + describe(definition.argTypes[k]) +
                            (wanted > 1 ? " as argument " + std::to_string(k + 1) : std::string()) +
                            ", found " + shown(given));
            flagUse.args.push_back(std::move(*converted));
        }
        i += wanted;
        return true;
    }

    bool readPositionals(ParsedArguments& parsed) {
        const std::size_t declared = m_syntax.commandArgs.size();
        if (m_positionals.size() < declared)
            return fail("expects " + plural(declared, "command argument") + ", found " +
                        std::to_string(m_positionals.size()));
        for (std::size_t k = 0; k < declared; ++k) {
            auto converted = convert(m_syntax.commandArgs[k], m_positionals[k]);
            if (!converted)
                return fail("command argument " + std::to_string(k + 1) + " must be " +
                            describe(m_syntax.commandArgs[k]) + ", found " + shown(m_positionals[k]));
            parsed.commandArgs.push_back(std::move(*converted));
        }
        for (std::size_t k = declared; k < m_positionals.size(); ++k) {
            const Value& given = m_positionals[k];
            if (m_syntax.objectFormat == ZSyntax::kNone)
                return fail("unexpected argument " + shown(given));
            auto name = toString(given);
            if (!name)
                return fail("object names must be strings, found " + shown(given));
            parsed.objects.push_back(std::move(*name));
        }
        return checkObjectCount(parsed.objects.size());
    }

    bool checkObjectCount(std::size_t count) {
        if (m_syntax.objectFormat == ZSyntax::kNone)
            return true;
        // Without objects a command that defaults to the selection gets it
        // later, so the minimum is not checked here.
        if (count < m_syntax.minObjects && !(count == 0 && m_syntax.selectionAsDefault))
            return fail("needs at least " + plural(m_syntax.minObjects, "object") + ", found " +
                        std::to_string(count));
        if (count > m_syntax.maxObjects)
            return fail("takes at most " + plural(m_syntax.maxObjects, "object") + ", found " +
                        std::to_string(count));
        return true;
    }

    const SyntaxData& m_syntax;
    const std::vector<ArgItem>& m_items;
    std::vector<Value> m_positionals;
    std::string m_error;
};

} // namespace

ParseOutcome parseArguments(const SyntaxData& syntax, const std::vector<ArgItem>& items) {
    return ArgumentReader(syntax, items).run();
}

} // namespace oz::cmd
