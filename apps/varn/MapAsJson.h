#pragma once

#include "Game/Map/WizMap.h"
#include "Output.h"

namespace varn::driver {

/// A floor without its cells: "cols", "rows", the side document's "attributes" with the values in
/// use (numbers where the document has numbers), "events" and "areas".
Json mapAsJson(const WizMap& map);
/// The rows from the top, each a list of its cells.
Json cellsAsJson(const WizMap& map);

} // namespace varn::driver
