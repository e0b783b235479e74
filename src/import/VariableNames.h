#pragma once

#include <optional>

#include "model/Variables.h"

/// Bodies whose pages show the values of variables, when the pages were edited.
namespace importer {

/// The variables with the day on which a page was generated, where their values hold one: the last
/// day whose dates the page shows. Today, when that cannot be found out.
std::vector<model::Variable>
variablesOfPage(text::TextView body, const model::ProjectOptions& options, text::TextView edited);

/// Whether a page's text is a body with any values in place of its variables: with those of an
/// earlier generation, say.
bool differsInValuesOnly(text::TextView body, const std::vector<model::Variable>& variables,
                         text::TextView edited);

/// The body of which an edited page shows the values: what was edited as it was edited, and
/// everywhere else the names that the body has. With its values it is the edited text again.
/// Nothing when a value itself was edited, or is not the one of now, or so much else that nobody
/// can tell.
std::optional<text::Text> withVariableNames(text::TextView body,
                                            const std::vector<model::Variable>& variables,
                                            text::TextView edited);

} // namespace importer
