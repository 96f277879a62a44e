#include "data/samples.h"

namespace {

constexpr std::array<Word, 2> noWords = {Word::None_, Word::None_};
constexpr auto cells = SampleForm::cells;
constexpr auto columns = SampleForm::columns;

// Rows are cut at blanks, so that a list reads as it is printed. The checks that each list has passed are in
// the tests: a fit, a sum or a moment that its source or a later author publishes.
constexpr Sample samples[] = {
    {1,
     SampleSide::life,
     "1W - Lawless [1982] p. 228",
     {Word::Life, Word::Test},
     standard0,
     cells,
     "17.88 28.92 33 41.52 42.12 45.6 48.4 51.84 51.96 54.12 55.56 67.8 68.64 68.64 68.88 84.12 93.12 98.64 "
     "105.12 105.84 127.92 128.04 173.4",
     "",
     "Millions of revolutions to fatigue of 23 ball bearings. Lawless, Statistical Models and Methods for "
     "Lifetime Data (1982) 228, after Lieblein and Zelen, J. Res. NBS 57 (1956) 273"},
    {2, SampleSide::life, "2W - Lawless [1982] p. 175 Leukemia Drug", noWords, standard0, cells,
     "6x0x3x0 -6x0x1x0 7x0x1x0 -9x0x1x0 10x0x1x0 -10x0x1x0 -11x0x1x0 13x0x1x0 16x0x1x0 -17x0x1x0 -19x0x1x0 "
     "-20x0x1x0 22x0x1x0 23x0x1x0 -25x0x1x0 -32x0x2x0 -34x0x1x0 -35x0x1x0",
     "",
     "Weeks of remission of 21 patients under 6-MP, 9 relapses, 12 still in remission. Freireich et al., "
     "Blood 21 (1963) 699; Lawless, Statistical Models and Methods for Lifetime Data (1982) 5"},
    {3, SampleSide::life, "3W - Nelson [1982] pp. 317 to 336", noWords, standard0, cells,
     "450x0x1x0 -460x0x1x0 1150x0x2x0 -1560x0x1x0 1600x0x1x0 -1660x0x1x0 -1850x0x5x0 -2030x0x3x0 2070x0x2x0 "
     "2080x0x1x0 -2200x0x1x0 -3000x0x4x0 3100x0x1x0 -3200x0x1x0 3450x0x1x0 -3750x0x2x0 -4150x0x4x0 "
     "-4300x0x4x0 4600x0x1x0 -4850x0x4x0 -5000x0x3x0 6100x0x1x0 -6100x0x3x0 -6300x0x1x0 -6450x0x2x0 "
     "-6700x0x1x0 -7450x0x1x0 -7800x0x2x0 -8100x0x2x0 -8200x0x1x0 -8500x0x3x0 8750x0x1x0 -8750x0x2x0 "
     "-9400x0x1x0 -9900x0x1x0 -10100x0x3x0 -11500x0x1x0",
     "",
     "Hours of the fans of 70 diesel generators, 12 failures. Nelson, Applied Life Data Analysis (1982) 317"},
    {4, SampleSide::life, "4W - [1982] p. 415", noWords, prbt2, cells,
     "6.12x0x5x167 19.92x0x21x167 29.64x0x33x167 35.4x0x51x167 39.72x0x69x167 45.24x0x71x167 52.32x0x77x167 "
     "63.48x0x94x167",
     "",
     "Months at inspection, parts found cracked up to then, of 167. Nelson, Applied Life Data Analysis "
     "(1982) "
     "415, who counts the cracked parts of each interval"},
    {5, SampleSide::life, "5W - Abernethy [Field Life Handbook] 4-4", noWords, standard0, cells,
     "-50x0x288x0 -150x0x148x0 230x0x1x0 -250x0x124x0 334x0x1x0 -350x0x111x0 423x0x1x0 -450x0x106x0 "
     "-550x0x99x0 -650x0x110x0 -750x0x114x0 -850x0x119x0 -950x0x127x0 990x0x1x0 1009x0x1x0 -1050x0x123x0 "
     "-1150x0x93x0 -1250x0x47x0 -1350x0x41x0 -1450x0x27x0 1510x0x1x0 -1550x0x11x0 -1650x0x6x0 -1850x0x1x0 "
     "-2050x0x2x0",
     "",
     "Hours of 1703 bearing cages in the field, 6 fractures. Abernethy, Breneman, Medlin and Reinman, "
     "Weibull "
     "Analysis Handbook, AFWAL-TR-83-2079 (1983) chapter 4; Meeker and Escobar, Statistical Methods for "
     "Reliability Data (1998) example 8.16"},
    {6, SampleSide::life, "6W", noWords, standard0, cells, "", "", "An empty grid to type into"},
    {7, SampleSide::visual, "7V - Crow [IEC1164] p. 27 (Duane / Crow-AMSAA)", noWords, standard0, cells,
     "2x1 4x2 10x3 15x4 18x5 19x6 20x7 25x8 39x9 41x10 43x11 45x12 47x13 66x14 88x15 97x16 104x17 105x18 "
     "120x19 196x20 217x21 219x22 257x23 260x24 281x25 283x26 289x27 307x28 329x29 357x30 372x31 374x32 "
     "393x33 403x34 466x35 521x36 556x37 571x38 621x39 628x40 642x41 684x42 732x43 735x44 754x45 792x46 "
     "803x47 805x48 832x49 836x50 873x51 975x52 1000x52",
     "",
     "Accumulated hours and number of 52 failures in a test of 1000 hours, whose end is the last point. IEC "
     "61164 (IEC 1164:1995), example of a test that ends at a time"},
    {8, SampleSide::either, "8A - Michelson [1882] NIST StRD", noWords, standard0, columns,
     "850 740 900 1070 930 850 950 980 980 880 1000 980 930 650 760 810 1000 1000 960 960 960 940 960 940 "
     "880 "
     "800 850 880 900 840 830 790 810 880 880 830 800 790 760 800 880 880 880 860 720 720 620 860 970 950 "
     "880 "
     "910 850 870 840 840 850 840 840 840 890 810 810 820 800 770 760 740 750 760 910 920 890 860 880 720 "
     "840 "
     "850 850 780 890 840 780 810 760 810 790 810 820 850 870 870 810 740 810 940 950 800 810 870",
     "",
     "Speed of light in air, km/s above 299000, 100 determinations in their order. Michelson, Astron. Papers "
     "Am. Ephemeris 1 (1882) 109; NIST Statistical Reference Datasets, Michelso"},
    {9,
     SampleSide::visual,
     "9V -",
     {Word::Recurrent, Word::None_},
     standard0,
     cells,
     "7068x1_024 26744x0x1x3.3E+33_024 28x1_026 13809x0x1x3.3E+33_026 48x1_027 1440x1_027 "
     "29834x0x1x3.3E+33_027 530x1_029 25660x0x1x3.3E+33_029 21762x0x1x3.3E+33_031 14235x0x1x3.3E+33_032 "
     "1388x1_034 18228x0x1x3.3E+33_034 21401x0x1x3.3E+33_035 21876x0x1x3.3E+33_098 5094x1_107 "
     "18228x0x1x3.3E+33_107 21691x0x1x3.3E+33_108 20890x0x1x3.3E+33_109 22486x0x1x3.3E+33_110 "
     "19321x0x1x3.3E+33_111 21585x0x1x3.3E+33_112 18676x0x1x3.3E+33_113 23520x0x1x3.3E+33_114 "
     "17955x0x1x3.3E+33_115 19507x0x1x3.3E+33_116 24177x0x1x3.3E+33_117 22854x0x1x3.3E+33_118 "
     "17844x0x1x3.3E+33_119 22637x0x1x3.3E+33_120 375x1_121 19607x0x1x3.3E+33_121 19403x0x1x3.3E+33_122 "
     "20997x0x1x3.3E+33_123 19175x0x1x3.3E+33_124 20425x0x1x3.3E+33_125 22149x0x1x3.3E+33_126 "
     "21144x0x1x3.3E+33_129 21237x0x1x3.3E+33_130 14281x0x1x3.3E+33_131 8250x1_132 21974x0x1x3.3E+33_132 "
     "19250x1_133 21888x0x1x3.3E+33_133",
     "",
     "Miles at the repairs of the automatic transmissions of 34 cars in a road test, and at the end of their "
     "observation, transcribed from recollection. Nelson, Qual. Reliab. Eng. Int. 14 (1998) 49, and "
     "Recurrent "
     "Events Data Analysis (2003) chapter 1"},
    {10, SampleSide::either, "10A - PT27 Norris [NIST StRD]", noWords, standard0, columns,
     "0.2,0.1 337.4,338.8 118.2,118.1 884.6,888.0 10.1,9.2 226.5,228.1 666.3,668.5 996.3,998.5 448.6,449.1 "
     "777.0,778.9 558.2,559.2 0.4,0.3 0.6,0.1 775.5,778.1 666.9,668.8 338.0,339.3 447.5,448.9 11.6,10.8 "
     "556.0,557.7 228.1,228.3 995.8,998.0 887.6,888.8 120.2,119.6 0.3,0.3 0.3,0.6 556.8,557.6 339.1,339.3 "
     "887.2,888.0 999.0,998.5 779.0,778.9 11.1,10.2 118.3,117.6 229.2,228.9 669.1,668.4 448.9,449.2 0.5,0.2",
     "",
     "Calibration of ozone monitors: customer's reading over the reference. NIST Statistical Reference "
     "Datasets, Norris"},
    {11, SampleSide::either, "11A - Anscombe [1973]", noWords, standard0, columns,
     "10,8.04,10,9.14,10,7.46,8,6.58 8,6.95,8,8.14,8,6.77,8,5.76 13,7.58,13,8.74,13,12.74,8,7.71 "
     "9,8.81,9,8.77,9,7.11,8,8.84 11,8.33,11,9.26,11,7.81,8,8.47 14,9.96,14,8.10,14,8.84,8,7.04 "
     "6,7.24,6,6.13,6,6.08,8,5.25 4,4.26,4,3.10,4,5.39,19,12.50 12,10.84,12,9.13,12,8.15,8,5.56 "
     "7,4.82,7,7.26,7,6.42,8,7.91 5,5.68,5,4.74,5,5.73,8,6.89",
     "1,2,3,4", "Four sets of one regression line and four shapes. Anscombe, Am. Stat. 27 (1973) 17"},
};

} // namespace

const Sample* sampledata(int number) {
    for (const Sample& sample : samples)
        if (sample.number == number) return &sample;
    return nullptr;
}

std::string sampletitle(const Sample& sample) {
    std::string title;
    append(title, AsTyped{sample.label});
    for (const Word slot : sample.words)
        if (slot != Word::None_) extend(title, " ", slot);
    wordclean(title);
    return title;
}

std::optional<SampleText> sampletext(int number) {
    const Sample* const sample = sampledata(number);
    if (!sample) return std::nullopt;
    SampleText handed{sampletitle(*sample), {}, 'A'};
    for (const char c : sample->rows) {
        if (c == ' ')
            handed.text += lineBreak;
        else
            append(handed.text, c == ',' ? '\t' : c);
    }
    if (!handed.text.empty()) handed.text += lineBreak;
    return handed;
}
