// The five lists of quantization rows, told apart by the first value of a file's first table.
#pragma once

/// All five classes are alike and hold no state. The numbers in a name are some of the first values that the class
/// serves, in hexadecimal. `standardQ_table(count)` finds the first row, in the order of the search, that agrees with
/// the first `count` values, 1 to 25, of the heads in `pApp`. `nDqtLength` says what is wanted:
/// - 67: the one table whose head `nDqtIndex` chooses, found as any table of a pair or triple, for a third table of
///   triples alone. Where it isn't the first of its row, the five bytes in front of its values are those of the row.
/// - 132: a pair, 197: a triple. While `bQuantPairPatched` or `bQuantTriplePatched` is set, one table that agrees is
///   enough.
/// Returns `aQuantOne`, `aQuantPair` or `aQuantTriple` and clears `bQuantNotFound`; without a match, or with a count
/// out of range, returns nullptr and sets `bQuantNotFound`.

/// First value 1.
class Quantization_StandardTables
{
public:
    Quantization_StandardTables();
    ~Quantization_StandardTables();
    unsigned char *standardQ_table(int count);
};

/// First value 2.
class Quantization_standard_02
{
public:
    Quantization_standard_02();
    ~Quantization_standard_02();
    unsigned char *standardQ_table(int count);
};

/// First values 3, 4 and 5; only rows that begin with the first value of `aQuantHead1` are tried.
class Quantization_standard_3_4_5
{
public:
    Quantization_standard_3_4_5();
    ~Quantization_standard_3_4_5();
    unsigned char *standardQ_table(int count);
};

/// First values 6 to 9, 16 and 18; only rows that begin with the first value of `aQuantHead1` are tried.
class Quantization_standard_6_8_9_10_12
{
public:
    Quantization_standard_6_8_9_10_12();
    ~Quantization_standard_6_8_9_10_12();
    unsigned char *standardQ_table(int count);
};

/// First values 10 to 13, 20, 21, 27, 32, 33, 43, 50 and 80; only rows that begin with the first value of `aQuantHead1`
/// are tried.
class Quantization_standard_15_21_50_others
{
public:
    Quantization_standard_15_21_50_others();
    ~Quantization_standard_15_21_50_others();
    unsigned char *standardQ_table(int count);
};
