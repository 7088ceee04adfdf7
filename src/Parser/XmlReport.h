#pragma once

#include "Parser/XmlDocument.h"

namespace varn {

/// What the person who must fix the document by hand is told: the place by row (from 1) and column
/// (from 0), the line up to a little behind the fault, the reason.
WString composeReport(WStringView fileName, WStringView text, const XmlFault& fault);

/// Shows a report. Where the document is a file, asks whether to open it, and does so.
void showReport(WStringView fileName, WStringView report);

} // namespace varn
