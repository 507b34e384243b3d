#include "avlor/data/clsUtilitaDati.h"

namespace avlor {

clsUtilitaDati& clsUtilitaDati::instance()
{
    static clsUtilitaDati utilities;
    return utilities;
}

std::string clsUtilitaDati::FormattaTestoSql(const std::string& text) const
{
    std::string literal = "'";
    for (const char c : text) {
        literal += c;
        if (c == '\'') {
            literal += '\'';
        }
    }
    literal += '\'';
    return literal;
}

bool clsUtilitaDati::EsisteInCollezione(const Collection& collection, const std::string& key) const
{
    return collection.ContainsKey(key);
}

} // namespace avlor
