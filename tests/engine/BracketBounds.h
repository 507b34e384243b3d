#pragma once
// The value brackets of the rights and civil-fee tables as the official
// tables give them, written out independently of the engine's own tables so
// that tests can check one against the other.
#include <string>
#include <vector>

#include "avlor/core/FeeTables.h"

namespace avlor::test {

struct Bounds {
    Edition edition;
    std::vector<std::string> uppers; // upper bound of each closed bracket
    std::vector<std::string> words; // word of each bracket, the open one last
    std::string unit; // the table's smallest step
    std::string inGap; // a fraction of the step
};

inline const Bounds RightsLire94{Edition::Lire94,
                                 {"250000", "500000", "1000000", "3000000", "5000000", "10000000", "50000000",
                                  "100000000", "200000000", "500000000", "1000000000", "3000000000"},
                                 {"VALORESCA1", "VALORESCA2", "VALORESCA3", "VALORESCA4", "VALORESCA5", "VALORESCA6",
                                  "VALORESCA7", "VALORESCA8", "VALORESCA9", "VALORESCA10", "VALORESCA11", "VALORESCA12",
                                  "VALORESCA13"},
                                 "1",
                                 "0.5"};
inline const Bounds RightsEuro94{Edition::Euro94,
                                 {"129.11", "258.23", "516.46", "1549.37", "2582.28", "5164.57", "25822.84", "51645.69",
                                  "103291.38", "258228.45", "516456.9", "1549370.7"},
                                 RightsLire94.words,
                                 "0.01",
                                 "0.005"};
inline const Bounds RightsEuro2004{
    Edition::Euro2004,
    {"600", "1600", "2600", "5200", "25900", "51700", "103300", "258300", "516500", "1549400", "2582300", "5164600"},
    RightsLire94.words,
    "0.01",
    "0.005"};

inline const Bounds CivilLire94{
    Edition::Lire94,
    {"3000000", "5000000", "10000000", "50000000", "100000000", "200000000", "500000000", "750000000", "1000000000",
     "3000000000", "5000000000"},
    {"SCA1", "SCA2", "SCA3", "SCA4", "SCA5", "SCA6", "SCA7", "SCA8", "SCA9", "SCA10", "SCA11", "SCA11"},
    "1",
    "0.5"};
inline const Bounds CivilEuro94{Edition::Euro94,
                                {"129.11", "258.23", "516.46", "1549.37", "2582.28", "5164.57", "25822.84", "51645.69",
                                 "103291.38", "258228.45", "387342.67", "516456.9", "1549370.7", "2582284.5"},
                                {"SCA01", "SCA02", "SCA03", "SCA1", "SCA2", "SCA3", "SCA4", "SCA5", "SCA6", "SCA7",
                                 "SCA8", "SCA9", "SCA10", "SCA11", "SCA11"},
                                "0.01",
                                "0.005"};
inline const Bounds CivilEuro2004{
    Edition::Euro2004,
    {"600", "1600", "2600", "5200", "25900", "51700", "103300", "258300", "516500", "1549400", "2582300", "5164600"},
    {"SCA01", "SCA02", "SCA03", "SCA1", "SCA2", "SCA3", "SCA4", "SCA5", "SCA6", "SCA7", "SCA8", "SCA9", "SCA10"},
    "0.01",
    "0.005"};

} // namespace avlor::test
