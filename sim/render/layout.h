// Where on the roll each sign and each dot comes. Everything is measured in dots of the printing
// unit, eight to the millimetre, from the left upper corner of the paper.
#pragma once

#include <span>

#include "sim/paper.h"

namespace sim {

/// The cell of a sign of normal width.
inline constexpr int kSignWidth = 12;
inline constexpr int kSignHeight = 24;

/// The paper beside what is printed: also the quiet zone of the widest bar codes.
inline constexpr int kMargin = 24;
inline constexpr int kPaperWidth = kPaperColumns * kSignWidth + 2 * kMargin;

inline constexpr int kDotsPerMillimetre = 8;

/// On what the paper is drawn.
class Canvas {
  public:
    virtual ~Canvas() = default;
    /// A sign that is not blank; `width` is that of its line.
    virtual void Sign(int x, int y, char16_t sign, int width) = 0;
    /// A black rectangle.
    virtual void Black(int x, int y, int width, int height) = 0;
};

/// How long an element is.
int HeightOf(const PaperElement& element);
/// Draws an element with its upper edge at `y`.
void Draw(const PaperElement& element, int y, Canvas& canvas);

/// Draws elements from the top of a sheet to its end, margins included; returns its height.
int DrawSheet(std::span<const PaperElement> paper, Canvas& canvas);

/// The characters of a text of the basic plane.
std::u16string SignsOf(std::string_view text);

}  // namespace sim
