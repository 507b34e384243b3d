#include "CallArguments.h"

#include <charconv>
#include <limits>
#include <regex>
#include <stdexcept>

namespace avlor::cli {

Value argumentFromWord(const std::string& word)
{
    static const std::regex whole(R"([+-]?[0-9]+)");
    static const std::regex decimal(R"([+-]?([0-9]+\.[0-9]*|\.[0-9]+)([eE][+-]?[0-9]+)?)");
    if (word == "null")
        return Value::null();
    if (std::regex_match(word, whole)) {
        long long n = 0;
        const char* first = word.data() + (word.front() == '+' ? 1 : 0);
        auto [end, ec] = std::from_chars(first, word.data() + word.size(), n);
        if (ec == std::errc() && end == word.data() + word.size() && n >= std::numeric_limits<std::int32_t>::min() &&
            n <= std::numeric_limits<std::int32_t>::max())
            return Value::longValue(static_cast<std::int32_t>(n));
        return Value::dbl(std::stod(word));
    }
    if (std::regex_match(word, decimal))
        return Value::dbl(std::stod(word));
    return Value::text(word);
}

std::vector<Value> argumentsFromWords(const std::vector<std::string>& words)
{
    std::vector<Value> out;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (words[i] == "--text") {
            if (i + 1 >= words.size())
                throw std::invalid_argument("--text needs the word to keep as text after it");
            out.push_back(Value::text(words[++i]));
        } else {
            out.push_back(argumentFromWord(words[i]));
        }
    }
    return out;
}

} // namespace avlor::cli
