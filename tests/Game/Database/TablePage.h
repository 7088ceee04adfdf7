#pragma once

#include <string>

namespace varn::test {

/// docs/tables.md: every table's files, records and elements, told from the field tables. UTF-8.
std::string composeTablePage();

} // namespace varn::test
