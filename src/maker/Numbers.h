// Numbers as texts and back, for dialogs and messages. Always in the classic locale: the separator is a full stop,
// whatever the host has set.
#pragma once

#include <string>

struct ArtObject;

namespace vl {

// Writing. Lengths are points, angles degrees, as the caller has them.

/// With so many decimals, at most 8; a negative number of places gives six significant digits.
[[nodiscard]] std::string formatNumber(double value, short places);
[[nodiscard]] std::string formatPoints(double value, short places);
/// In 32nds up to 7/32 and in 16ths from 1/4, such as "2-1/2"; else with up to 5 decimals. What is not above 0 is "0".
[[nodiscard]] std::string formatAsFraction(double value);
/// The handle as an address, for diagnostics.
[[nodiscard]] std::string formatAIHandle(ArtObject* handle);

// Reading. False leaves `value` as it is; what follows the number is ignored.

/// Reads "3", "3/4" and "1 3/4". False where the fraction divides by 0.
bool fractionValue(const std::string& text, double& value);
bool scanNumber(const std::string& text, double& value);
/// As `scanNumber`; the number may have "pt" behind it, in any case.
bool scanPoints(const std::string& text, double& value);

// Texts

/// Every occurrence replaced; what was put in is not searched again. An empty `from` occurs nowhere.
[[nodiscard]] std::string strReplace(std::string text, const std::string& from, const std::string& to);
/// Without the zeros at the end; the first character always stays.
[[nodiscard]] std::string trimString(std::string text);
[[nodiscard]] int lineCount(const std::string& text);

} // namespace vl
