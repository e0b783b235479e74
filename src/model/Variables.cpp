#include "model/Variables.h"

#include <algorithm>

#include "platform/Clock.h"
#include "text/TextLines.h"

namespace model {

using text::append;
using text::appendLine;
using text::Text;
using text::TextView;

namespace {

constexpr TextView keyStart = "variable."; // in small letters
constexpr TextView nameStart = "{{";
constexpr TextView nameEnd = "}}";
constexpr TextView todayStart = "{{today";
constexpr TextView usualDate = "YYYY-MM-DD";

bool isNameCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_'
           || c == '-' || c == '.' || (static_cast<unsigned char>(c) & 0x80U) != 0;
}

std::size_t nameLength(TextView text) {
    return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), isNameCharacter)
                                    - text.begin());
}

void define(std::vector<Variable>& variables, TextView name, TextView value) {
    const auto known =
        std::find_if(variables.begin(), variables.end(), [name](const Variable& variable) {
            return text::equalIgnoringCase(variable.name, name);
        });
    if (known != variables.end()) {
        known->value = text::trim(value);
    } else {
        variables.push_back({Text(name), Text(text::trim(value))});
    }
}

/// Takes "name=value"; false when it is none.
bool takeDefinition(TextView line, std::vector<Variable>& variables) {
    const std::size_t equals = line.find('=');
    const TextView name = text::trim(line.substr(0, equals));
    if (equals == TextView::npos || name.empty() || nameLength(name) != name.size()) {
        return false;
    }
    define(variables, name, line.substr(equals + 1));
    return true;
}

bool isDefinition(TextView headLine) {
    return text::startsWithIgnoringCase(text::trim(headLine), keyStart);
}

/// Calls `take` for each line; an empty text has none.
template <typename Take>
void forLines(TextView lines, const Take& take) {
    text::LineReader reader(lines);
    for (TextView line; reader.next(line);) {
        take(line);
    }
}

/// A day in digits, as in "D.M.YYYY".
Text dateAs(TextView form, std::chrono::sys_days day) {
    const std::chrono::year_month_day date(day);
    struct Part {
        TextView sign;
        unsigned value;
    };
    const Part parts[] = {{"YYYY", static_cast<unsigned>(static_cast<int>(date.year()))},
                          {"MM", static_cast<unsigned>(date.month())},
                          {"DD", static_cast<unsigned>(date.day())},
                          {"M", static_cast<unsigned>(date.month())},
                          {"D", static_cast<unsigned>(date.day())}};
    Text made;
    while (!form.empty()) {
        const auto* const part =
            std::find_if(std::begin(parts), std::end(parts),
                         [form](const Part& p) { return form.starts_with(p.sign); });
        if (part == std::end(parts)) {
            made += form.front();
            form.remove_prefix(1);
            continue;
        }
        const Text digits = std::to_string(part->value);
        made.append(part->sign.size() - std::min(part->sign.size(), digits.size()), '0') += digits;
        form.remove_prefix(part->sign.size());
    }
    return made;
}

Text withDay(TextView value, std::chrono::sys_days day) {
    Text made;
    for (std::size_t found = 0; (found = value.find(todayStart)) != TextView::npos;) {
        const TextView rest = value.substr(found + todayStart.size());
        const bool hasForm = rest.starts_with(':');
        const std::size_t end = hasForm ? rest.find(nameEnd) : 0;
        if (end == TextView::npos) {
            break; // no other has an end, either
        }
        if (!hasForm && !rest.starts_with(nameEnd)) {
            append(made, value.substr(0, found + todayStart.size()));
            value = rest;
            continue;
        }
        append(made, value.substr(0, found),
               dateAs(hasForm ? rest.substr(1, end - 1) : usualDate, day));
        value = rest.substr(end + nameEnd.size());
    }
    return made + Text(value);
}

} // namespace

std::vector<Variable> variablesOf(const ProjectOptions& options) {
    std::vector<Variable> variables;
    if (options.otherKeys.empty()) {
        return variables;
    }
    forLines(options.otherKeys, [&variables](TextView line) {
        if (isDefinition(line)) {
            takeDefinition(text::trim(line).substr(keyStart.size()), variables);
        }
    });
    return variables;
}

std::vector<Variable> datedVariables(const ProjectOptions& options, std::chrono::sys_days day) {
    std::vector<Variable> variables = variablesOf(options);
    for (Variable& variable : variables) {
        variable.value = withDay(variable.value, day);
    }
    return variables;
}

std::vector<Variable> shownVariables(const ProjectOptions& options) {
    return options.otherKeys.empty() ? std::vector<Variable>()
                                     : datedVariables(options, platform::today());
}

void setVariables(ProjectOptions& options, const std::vector<Variable>& variables) {
    Text keys;
    forLines(options.otherKeys, [&keys](TextView line) {
        if (!line.empty() && !isDefinition(line)) {
            appendLine(keys, line);
        }
    });
    for (const Variable& variable : variables) {
        appendLine(keys, "Variable.", variable.name, "=", text::oneLine(variable.value));
    }
    options.otherKeys = std::move(keys);
}

std::optional<std::vector<Variable>> parseVariables(TextView lines, Text& wrongLine) {
    std::vector<Variable> variables;
    bool sound = true;
    forLines(lines, [&](TextView line) {
        if (sound && !text::trim(line).empty() && !takeDefinition(line, variables)) {
            wrongLine = line;
            sound = false;
        }
    });
    return sound ? std::optional(variables) : std::nullopt;
}

std::vector<VariableUse> variableUses(TextView body, const std::vector<Variable>& variables) {
    std::vector<VariableUse> uses;
    if (variables.empty()) {
        return uses;
    }
    for (std::size_t at = 0; (at = body.find(nameStart, at)) != TextView::npos;) {
        const TextView rest = body.substr(at + nameStart.size());
        const TextView name = rest.substr(0, nameLength(rest));
        if (name.empty() || !rest.substr(name.size()).starts_with(nameEnd)) {
            ++at; // "{{{name}}" holds one, too
            continue;
        }
        const auto known =
            std::find_if(variables.begin(), variables.end(), [name](const Variable& variable) {
                return text::equalIgnoringCase(variable.name, name);
            });
        const std::size_t length = nameStart.size() + name.size() + nameEnd.size();
        uses.push_back({at, length, name, known == variables.end() ? nullptr : &*known});
        at += length;
    }
    return uses;
}

Text withVariables(TextView body, const std::vector<Variable>& variables) {
    Text made;
    std::size_t done = 0;
    for (const VariableUse& use : variableUses(body, variables)) {
        if (use.variable != nullptr) {
            append(made, body.substr(done, use.start - done), use.variable->value);
            done = use.start + use.length;
        }
    }
    return made + Text(body.substr(done));
}

Text shownBody(const Topic& topic, const ProjectOptions& options) {
    return withVariables(topic.body, shownVariables(options));
}

} // namespace model
