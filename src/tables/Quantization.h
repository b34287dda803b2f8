// Completes damaged quantization tables from the library, by their first values.
#pragma once

/// Holds no state of its own; input and output lie in `pApp`.
class Quantization
{
public:
    Quantization();
    ~Quantization();

    /// Looks for the library table that shares the most first values with the DQT being rebuilt: `nDqtLength` says
    /// whether one table (67), a pair (132) or a triple (197) is wanted, `nDqtIndex` which of single ones.
    /// Fills heads that are missing (first value 0) from another one, in `aQuantHead1` to `aQuantHead3`, and says so in
    /// `bQuantPairPatched` or `bQuantTriplePatched`. Searches only while `bQuantNotFound` is set and clears it when
    /// something is found; the caller sets it again once it has used the result.
    /// Returns `aQuantOne`, `aQuantPair` or `aQuantTriple`, nullptr if nothing was found.
    unsigned char *Quantization_table();
};
