// Reads and checks single records of the table texts.
#pragma once

#include "tables/TableLibrary.h"

#include <string_view>

/// Record readers. They expect a line without blanks at its ends, set everything in `row` but `line`, and return "" or
/// what is wrong with the record.
namespace tabletext {

QString readHuffmanRecord(std::string_view line, HuffmanRow &row);
QString readQuantizationRecord(std::string_view line, QuantizationFamily &family, QuantizationKind &kind,
                               QuantizationRow &row);

/// Takes the next line off `text`, without the blanks at its ends.
std::string_view takeLine(std::string_view &text);

} // namespace tabletext
