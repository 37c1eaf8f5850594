// Keys of the keyboard and buttons of the mouse, as monitors name them.
#pragma once

#include <cstdint>

namespace kzo::core {

/// Keys by their place, named after what they say on an American keyboard. The values are the platform's key codes.
enum class VirtualKey : std::uint16_t {
    // Letters
    A = 0x00,
    B = 0x0B,
    C = 0x08,
    D = 0x02,
    E = 0x0E,
    F = 0x03,
    G = 0x05,
    H = 0x04,
    I = 0x22,
    J = 0x26,
    K = 0x28,
    L = 0x25,
    M = 0x2E,
    N = 0x2D,
    O = 0x1F,
    P = 0x23,
    Q = 0x0C,
    R = 0x0F,
    S = 0x01,
    T = 0x11,
    U = 0x20,
    V = 0x09,
    W = 0x0D,
    X = 0x07,
    Y = 0x10,
    Z = 0x06,
    // Digits and signs
    Digit0 = 0x1D,
    Digit1 = 0x12,
    Digit2 = 0x13,
    Digit3 = 0x14,
    Digit4 = 0x15,
    Digit5 = 0x17,
    Digit6 = 0x16,
    Digit7 = 0x1A,
    Digit8 = 0x1C,
    Digit9 = 0x19,
    Equal = 0x18,
    Minus = 0x1B,
    LeftBracket = 0x21,
    RightBracket = 0x1E,
    Quote = 0x27,
    Semicolon = 0x29,
    Backslash = 0x2A,
    Comma = 0x2B,
    Period = 0x2F,
    Slash = 0x2C,
    Grave = 0x32,
    // Editing and moving
    Return = 0x24,
    Tab = 0x30,
    Space = 0x31,
    Delete = 0x33,
    ForwardDelete = 0x75,
    Escape = 0x35,
    Home = 0x73,
    End = 0x77,
    PageUp = 0x74,
    PageDown = 0x79,
    Left = 0x7B,
    Right = 0x7C,
    Down = 0x7D,
    Up = 0x7E,
    // Functions
    F1 = 0x7A,
    F2 = 0x78,
    F3 = 0x63,
    F4 = 0x76,
    F5 = 0x60,
    F6 = 0x61,
    F7 = 0x62,
    F8 = 0x64,
    F9 = 0x65,
    F10 = 0x6D,
    F11 = 0x67,
    F12 = 0x6F
};

enum class MouseButton : std::uint8_t { Left = 1, Right = 2, Other = 3 };

} // namespace kzo::core
