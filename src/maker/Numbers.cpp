// Numbers as texts and back.
#include "maker/Numbers.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <locale.h> // for the calls that change the locale of one thread
#include <locale>
#include <sstream>

namespace vl {

namespace {

/// While it lives, this thread scans in the classic locale.
class ClassicLocale {
  public:
    ClassicLocale() : before_(uselocale(classic())) {}
    ~ClassicLocale() { uselocale(before_); }
    ClassicLocale(const ClassicLocale&) = delete;
    ClassicLocale& operator=(const ClassicLocale&) = delete;

  private:
    static locale_t classic() {
        static const locale_t kClassic = newlocale(LC_ALL_MASK, "C", nullptr);
        return kClassic;
    }
    locale_t before_;
};

std::ostringstream classicStream() {
    std::ostringstream stream;
    stream.imbue(std::locale::classic());
    return stream;
}

struct Fraction {
    const char* decimals;
    const char* text;
};

constexpr Fraction kFractions[] = {
    {"0.00000", ""},      {"0.03125", "1/32"}, {"0.06250", "1/16"},  {"0.09375", "3/32"}, {"0.12500", "1/8"},
    {"0.15625", "5/32"},  {"0.18750", "3/16"}, {"0.21875", "7/32"},  {"0.25000", "1/4"},  {"0.31250", "5/16"},
    {"0.37500", "3/8"},   {"0.43750", "7/16"}, {"0.50000", "1/2"},   {"0.56250", "9/16"}, {"0.62500", "5/8"},
    {"0.68750", "11/16"}, {"0.75000", "3/4"},  {"0.81250", "13/16"}, {"0.87500", "7/8"},  {"0.93750", "15/16"},
};

} // namespace

// Writing

std::string formatNumber(double value, short places) {
    constexpr short kMostPlaces = 8;
    std::ostringstream stream = classicStream();
    if (places >= 0) {
        stream.setf(std::ios::fixed, std::ios::floatfield);
        stream.precision(std::min(places, kMostPlaces));
    }
    stream << value;
    return stream.str();
}

std::string formatPoints(double value, short places) { return formatNumber(value, places); }

std::string formatAsFraction(double value) {
    if (value <= 0) return "0";
    double whole = 0;
    const double part = value >= 1 ? std::modf(value, &whole) : value;
    std::string text = formatNumber(part, 5);
    const auto* const known = std::find_if(std::begin(kFractions), std::end(kFractions),
                                           [&](const Fraction& row) { return text == row.decimals; });
    if (known != std::end(kFractions)) text = known->text;
    text = trimString(text);
    if (whole < 1) return text;
    if (text.starts_with('0')) return formatNumber(whole, 0) + text.substr(1);
    return formatNumber(whole, 0) + (text.empty() ? "" : "-") + text;
}

std::string formatAIHandle(ArtObject* handle) {
    std::ostringstream stream = classicStream();
    stream << static_cast<const void*>(handle);
    return stream.str();
}

// Reading

bool fractionValue(const std::string& text, double& value) {
    const ClassicLocale classic;
    // Reads the number behind `at` and its separator, and moves on to its end; 0 where the text is through.
    const auto next = [](const char*& at) {
        if (*at == '\0') return 0.0;
        char* end = nullptr;
        const double number = std::strtod(at + 1, &end);
        at = end;
        return number;
    };
    char* at = nullptr;
    const double first = std::strtod(text.c_str(), &at);
    const char separator = *at;
    const char* rest = at;
    const double second = next(rest);
    if (separator == ' ' && *rest == '/') {
        const double third = next(rest);
        if (third == 0) return false;
        value = first + second / third;
    } else if (separator == '/') {
        if (second == 0) return false;
        value = first / second;
    } else {
        value = first;
    }
    return true;
}

bool scanNumber(const std::string& text, double& value) {
    const ClassicLocale classic;
    double number = 0;
    // NOLINTNEXTLINE(cert-err34-c): what is too large is infinity here, which is what the caller shall see
    if (std::sscanf(text.c_str(), "%lf", &number) != 1) return false;
    value = number;
    return true;
}

// A suffix is not converted, and whatever follows the number is ignored, so there is nothing to look at.
bool scanPoints(const std::string& text, double& value) { return scanNumber(text, value); }

// Texts

std::string strReplace(std::string text, const std::string& from, const std::string& to) {
    if (from.empty()) return text;
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
    return text;
}

std::string trimString(std::string text) {
    while (text.size() > 1 && text.back() == '0') text.pop_back();
    return text;
}

int lineCount(const std::string& text) { return static_cast<int>(std::count(text.begin(), text.end(), '\n')) + 1; }

} // namespace vl
