#pragma once

namespace kvpalette {

/// Turns measures that are given for 96 dots per inch into pixels of a finer screen, so that windows keep
/// their size to the eye.
class Scale {
public:
    explicit constexpr Scale(int dotsPerInch) : m_dotsPerInch(dotsPerInch) {}

    /// That of the screen, as it was when the program started.
    [[nodiscard]] static const Scale& OfScreen();

    [[nodiscard]] int Pixels(int measure) const;

private:
    int m_dotsPerInch;
};

/// Pixels of the screen.
[[nodiscard]] inline int Scaled(int measure) {
    return Scale::OfScreen().Pixels(measure);
}

}  // namespace kvpalette
