// Numbers as texts and back, under a locale that writes commas too.
#include "maker/Numbers.h"

#include <clocale>
#include <locale>
#include <optional>

#include <gtest/gtest.h>

namespace {

using namespace vl;

TEST(Numbers, AreWritten) {
    EXPECT_EQ(formatNumber(1.23456789, 12), "1.23456789");
    EXPECT_EQ(formatNumber(2.5, -1), "2.5");
    EXPECT_EQ(formatNumber(1234567.0, -1), "1.23457e+06");
    EXPECT_EQ(formatNumber(-30, -1), "-30");
    EXPECT_EQ(formatPoints(2, 3), "2.000");
    EXPECT_EQ(formatNumber(2.5, 0), "2");
    int object = 0;
    EXPECT_EQ(formatAIHandle(reinterpret_cast<ArtObject*>(&object)).substr(0, 2), "0x");
}

TEST(Numbers, AreWrittenAsFractions) {
    const struct {
        double value;
        const char* text;
    } rows[] = {{0.5, "1/2"},
                {2.5, "2-1/2"},
                {2, "2"},
                {2.3, "2.3"},
                {0.3, "0.3"},
                {1.28125, "1.28125"},
                {-2, "0"},
                {0, "0"},
                {0.999999, "1."},
                {3.999999, "3-1."},
                {0.031254, "1/32"},
                {0.03126, "0.03126"},
                {10, "10"},
                {0.34375, "0.34375"},
                {7.21875, "7-7/32"},
                {0.000001, ""}};
    for (const auto& row : rows) EXPECT_EQ(formatAsFraction(row.value), row.text) << row.value;
    // Of the 32nds only those up to 7/32, and all 16ths.
    for (int i = 1; i < 32; ++i)
        EXPECT_EQ(formatAsFraction(i / 32.0).find('/') != std::string::npos, i <= 8 || i % 2 == 0) << i;
    EXPECT_EQ(formatAsFraction(1e300).size(), 301u);
}

/// What is read of the text; nothing on failure, which must leave the value alone.
template <class Scan> std::optional<double> read(Scan scan, const std::string& text) {
    double value = -77;
    if (scan(text, value)) return value;
    EXPECT_EQ(value, -77) << text;
    return std::nullopt;
}

TEST(Numbers, AreRead) {
    const struct {
        const char* text;
        std::optional<double> fraction;
        std::optional<double> number;
    } rows[] = {{"1 1/2", 1.5, 1},          {"3/4", 0.75, 3},      {"3/0", std::nullopt, 3},
                {"1 3/0", std::nullopt, 1}, {"7", 7, 7},           {"1 2", 1, 1},
                {"-1.5e1x", -15, -15},      {"", 0, std::nullopt}, {"pt", 0, std::nullopt},
                {"7/", std::nullopt, 7},    {"7 ", 7, 7},          {"1 2/", std::nullopt, 1},
                {"  12.5 pt", 12.5, 12.5},  {"12PT", 12, 12},      {"12 mm", 12, 12},
                {",5", 0, std::nullopt}};
    for (const auto& row : rows) {
        EXPECT_EQ(read(fractionValue, row.text), row.fraction) << row.text;
        EXPECT_EQ(read(scanNumber, row.text), row.number) << row.text;
        EXPECT_EQ(read(scanPoints, row.text), row.number) << row.text;
    }
    EXPECT_EQ(read(scanPoints, "12 " + std::string(100000, 'p') + std::string(100000, 't')), 12);
}

/// A locale of C++ that writes commas, in any installation.
struct Commas : std::numpunct<char> {
    [[nodiscard]] char do_decimal_point() const override { return ','; }
    [[nodiscard]] char do_thousands_sep() const override { return '.'; }
    [[nodiscard]] std::string do_grouping() const override { return "\3"; }
};

TEST(Numbers, DoNotKnowTheLocale) {
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new Commas));
    std::setlocale(LC_ALL, "de_DE.UTF-8"); // where it is installed
    EXPECT_EQ(formatNumber(1234.5, 2), "1234.50");
    EXPECT_EQ(formatAsFraction(1234.3), "1234.3");
    EXPECT_EQ(read(scanNumber, "1.5"), 1.5);
    EXPECT_EQ(read(fractionValue, "1.5 1/2"), 2);
    std::setlocale(LC_ALL, "C");
    std::locale::global(before);
}

TEST(Numbers, TextsAreReplacedTrimmedAndCounted) {
    EXPECT_EQ(strReplace("aaa", "a", "aa"), "aaaaaa");
    EXPECT_EQ(strReplace("a-b-c", "-", ""), "abc");
    EXPECT_EQ(strReplace("abc", "", "x"), "abc");
    for (const auto& [text, trimmed] :
         {std::pair{"1.500", "1.5"}, {"100", "1"}, {"000", "0"}, {"2.000", "2."}, {"", ""}})
        EXPECT_EQ(trimString(text), trimmed);
    EXPECT_EQ(lineCount(""), 1);
    EXPECT_EQ(lineCount("a\nb\n"), 3);
}

} // namespace
