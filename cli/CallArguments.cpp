#include "CallArguments.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <string_view>

namespace avlor::cli {

namespace {

// The words are read by a single left-to-right scan: a pattern matcher that
// recurses per character overflows the stack on a long enough word.
bool isDigit(char c) { return c >= '0' && c <= '9'; }

std::size_t digitsFrom(std::string_view word, std::size_t at)
{
    std::size_t end = at;
    while (end < word.size() && isDigit(word[end]))
        ++end;
    return end - at;
}

// [+-]?[0-9]+
bool isWholeNumber(std::string_view word)
{
    const std::size_t sign = !word.empty() && (word.front() == '+' || word.front() == '-') ? 1 : 0;
    const std::size_t digits = digitsFrom(word, sign);
    return digits > 0 && sign + digits == word.size();
}

// [+-]?([0-9]+\.[0-9]*|\.[0-9]+)([eE][+-]?[0-9]+)?
bool isDecimalNumber(std::string_view word)
{
    std::size_t at = !word.empty() && (word.front() == '+' || word.front() == '-') ? 1 : 0;
    const std::size_t before = digitsFrom(word, at);
    at += before;
    if (at >= word.size() || word[at] != '.')
        return false;
    ++at;
    const std::size_t after = digitsFrom(word, at);
    at += after;
    if (before == 0 && after == 0)
        return false;
    if (at == word.size())
        return true;
    if (word[at] != 'e' && word[at] != 'E')
        return false;
    ++at;
    if (at < word.size() && (word[at] == '+' || word[at] == '-'))
        ++at;
    const std::size_t exponent = digitsFrom(word, at);
    return exponent > 0 && at + exponent == word.size();
}

// The number a word writes, as a double; refused when no double holds it.
double doubleOf(const std::string& word)
{
    std::string_view digits(word);
    if (!digits.empty() && digits.front() == '+')
        digits.remove_prefix(1);
    double value = 0;
    const auto [end, ec] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (ec == std::errc::result_out_of_range || (ec == std::errc() && !std::isfinite(value)))
        throw std::invalid_argument("il numero " + shortened(word) + " è troppo grande");
    if (ec != std::errc() || end != digits.data() + digits.size())
        throw std::invalid_argument("il numero " + shortened(word) + " non si può leggere");
    return value;
}

} // namespace

std::string shortened(const std::string& word)
{
    constexpr std::size_t shown = 40;
    if (word.size() <= shown)
        return "'" + word + "'";
    return "'" + word.substr(0, shown) + "...' (" + std::to_string(word.size()) + " characters)";
}

Value argumentFromWord(const std::string& word)
{
    if (word == "null")
        return Value::null();
    if (isWholeNumber(word)) {
        long long n = 0;
        const char* first = word.data() + (word.front() == '+' ? 1 : 0);
        auto [end, ec] = std::from_chars(first, word.data() + word.size(), n);
        if (ec == std::errc() && end == word.data() + word.size() && n >= std::numeric_limits<std::int32_t>::min() &&
            n <= std::numeric_limits<std::int32_t>::max())
            return Value::longValue(static_cast<std::int32_t>(n));
        return Value::dbl(doubleOf(word));
    }
    if (isDecimalNumber(word))
        return Value::dbl(doubleOf(word));
    return Value::text(word);
}

std::int32_t idFromWord(const std::string& name, const std::string& word)
{
    if (isWholeNumber(word)) {
        long long n = 0;
        const char* first = word.data() + (word.front() == '+' ? 1 : 0);
        auto [end, ec] = std::from_chars(first, word.data() + word.size(), n);
        if (ec == std::errc() && end == word.data() + word.size() && n >= std::numeric_limits<std::int32_t>::min() &&
            n <= std::numeric_limits<std::int32_t>::max())
            return static_cast<std::int32_t>(n);
        throw std::invalid_argument(name + ": " + shortened(word) + " è fuori intervallo (un numero intero da " +
                                    std::to_string(std::numeric_limits<std::int32_t>::min()) + " a " +
                                    std::to_string(std::numeric_limits<std::int32_t>::max()) + ")");
    }
    throw std::invalid_argument(name + ": " + shortened(word) + " non è un numero intero");
}

std::vector<Value> argumentsFromWords(const std::vector<std::string>& words)
{
    std::vector<Value> out;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (words[i] == "--text") {
            if (i + 1 >= words.size())
                throw std::invalid_argument("--text vuole dopo di sé la parola da tenere come testo");
            out.push_back(Value::text(words[++i]));
        } else {
            out.push_back(argumentFromWord(words[i]));
        }
    }
    return out;
}

} // namespace avlor::cli
