#pragma once

#include <chrono>
#include <optional>
#include <vector>

#include "model/ProjectOptions.h"
#include "model/Topic.h"

/// Texts with names that bodies refer to as "{{name}}". They stand in the head of a project file of
/// format 2, as "Variable.name=value", which earlier versions keep without understanding it. In a
/// value, "{{today}}" is the day on which something is made of the project, as in 2026-02-01;
/// "{{today:D.M.YYYY}}" is 1.2.2026, with MM and DD for two digits.
namespace model {

struct Variable {
    text::Text name;  ///< letters, digits, "_", "-" and "."; letter case does not matter
    text::Text value; ///< mark-up of one line, without outer blanks
    bool operator==(const Variable&) const = default;
};

/// In the order in which they were defined; of several with one name, the last one.
std::vector<Variable> variablesOf(const ProjectOptions& options);

/// With the day in the values that want it.
std::vector<Variable> datedVariables(const ProjectOptions& options, std::chrono::sys_days day);

/// As what is made of the project now shows them.
std::vector<Variable> shownVariables(const ProjectOptions& options);

void setVariables(ProjectOptions& options, const std::vector<Variable>& variables);

/// Lines of "name=value", as an author writes them; empty ones do not count. Nothing when a line is
/// none, which `wrongLine` is then.
std::optional<std::vector<Variable>> parseVariables(text::TextView lines, text::Text& wrongLine);

/// A place of a body that looks like a variable.
struct VariableUse {
    std::size_t start = 0; ///< of "{{name}}"
    std::size_t length = 0;
    text::TextView name;
    const Variable* variable = nullptr; ///< null for an unknown one
};
std::vector<VariableUse> variableUses(text::TextView body, const std::vector<Variable>& variables);

/// A text with the values in place of the variables' names; unknown names stay, and where nothing
/// is defined, all do. Values are not looked through again.
text::Text withVariables(text::TextView body, const std::vector<Variable>& variables);

/// What a topic's page shows: whatever is made of a project shows this in place of the body.
text::Text shownBody(const Topic& topic, const ProjectOptions& options);

} // namespace model
