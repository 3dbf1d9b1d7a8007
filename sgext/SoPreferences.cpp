#include "SoPreferences.h"

#include <cctype>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

struct Spelling
{
    const char* text;
    SbBool value;
};

const Spelling kSpellings[] = {
    {"true", TRUE}, {"false", FALSE}, {"1", TRUE},  {"0", FALSE},
    {"yes", TRUE},  {"no", FALSE},    {"on", TRUE}, {"off", FALSE},
};

std::string normalised(const char* text)
{
    std::string word;
    for (const char* c = text; *c; ++c) {
        if (!std::isspace(static_cast<unsigned char>(*c)))
            word += char(std::tolower(static_cast<unsigned char>(*c)));
        else if (!word.empty())
            word += ' ';
    }
    while (!word.empty() && word.back() == ' ')
        word.pop_back();
    return word;
}

// The setting's text, without case or surrounding blanks; empty when it is
// unset or blank, which every reader takes as "use the default".
std::string settingWord(const char* name)
{
    if (!name || !*name)
        return std::string();
    const char* text = std::getenv(name);
    return text ? normalised(text) : std::string();
}

} // namespace

SbBool SoPreferences::getBool(const char* name, SbBool defaultValue)
{
    const std::string word = settingWord(name);
    for (const Spelling& spelling : kSpellings) {
        if (word == spelling.text)
            return spelling.value;
    }
    return defaultValue;
}

int SoPreferences::getInt(const char* name, int defaultValue, int minimum)
{
    const std::string word = settingWord(name);
    if (word.empty())
        return defaultValue;
    char* end = nullptr;
    errno = 0;
    const long value = std::strtol(word.c_str(), &end, 10);
    if (errno != 0 || *end != '\0' || value < minimum || value > INT_MAX)
        return defaultValue;
    return int(value);
}
