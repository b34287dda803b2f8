// What a salvage can do to a picture, and how sure it is of it.
#pragma once

namespace salvage {

/// What was done to get a picture, in the order in which a report names it.
enum class Step {
    TransferUndone,  ///< 0D bytes that a transfer in text mode had put in went
    ScanFound,       ///< the scan's header was spoilt or missing
    FrameMended,     ///< fields of the frame or of the scan header
    IntervalFound,   ///< another restart interval than the header's
    TablesKnown,     ///< Huffman tables taken from the known ones
    CountsMended,    ///< counts of a Huffman table of the file's own
    SymbolsSearched, ///< symbols of a Huffman table of the file's own
    SizeFound,       ///< the size, from Exif or from the number of MCUs
    Quantization,    ///< quantization tables taken from the known ones, or smoothed
    CodesMended,     ///< codes in the entropy data that can't stand there
    HitsRepaired,    ///< bits and bytes of the entropy data that were hit
    Resynchronised,  ///< restart intervals put where their numbers say
    Realigned,       ///< what lies behind an error in the entropy data moved to where it fits
};

enum class Certainty {
    Guess,  ///< parts were lost or chosen by what looks right
    Likely, ///< all but a little was read, or a table was chosen by agreement
    Exact,  ///< every MCU was read and the data were used up: tables, sampling and size are right
};

} // namespace salvage
