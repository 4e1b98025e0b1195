#pragma once

#include <QString>

#include <cstddef>
#include <vector>

namespace platform {

// The order in which a file manager lists names: without regard to case, digits by
// their numeric value ("img2" before "img10"), in the user's language (the English
// order in the "C" locale). Names that collate equal keep a fixed order by their
// bytes.
//
// names[i] is the text form of the name whose bytes, NUL-terminated, are at
// bytes[i]. Returns the indexes of the names in that order.
std::vector<size_t> fileManagerOrder(const std::vector<QString>& names,
                                     const std::vector<const char*>& bytes);

} // namespace platform
