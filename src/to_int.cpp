#include "to_int.h"

#include <algorithm>

namespace
{

bool is_number_character(char character)
{
    return (character >= '0' && character <= '9') || character == '-';
}

}  // namespace

int to_int(const std::string &text, int default_value)
{
    if (std::none_of(text.begin(), text.end(), is_number_character))
        return default_value;
    std::string number = text;
    std::replace_if(
        number.begin(), number.end(), [](char c) { return !is_number_character(c); }, ' ');
    return std::stoi(number);
}
