// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "form/colour.h"
#include "form/picture.h"

// The controls of a form as plain values: their properties, and for a picture box the strokes
// drawn on its surface. The logic writes these; a backend shows them. All measures are twips
// (15 to the pixel) unless a name says otherwise.
namespace form {

struct Bounds {
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;
    friend bool operator==(const Bounds&, const Bounds&) = default;
};

struct Font {
    const char* face;  // UTF-8
    int weight;        // 400 normal, 700 bold
    double points;
    int charset;  // 134 is GB2312
    friend bool operator==(const Font&, const Font&) = default;
};

enum class Alignment { Left, Centre };

struct CircleStroke {
    float x, y, radius;
    Colour colour;
    friend bool operator==(const CircleStroke&, const CircleStroke&) = default;
};

struct LineStroke {
    float x1, y1, x2, y2;
    Colour colour;
    friend bool operator==(const LineStroke&, const LineStroke&) = default;
};

using Stroke = std::variant<CircleStroke, LineStroke>;

// A cell. Its surface keeps every stroke until Cls, so a cell that is hidden and shown again
// still shows its mark.
class PictureBox {
public:
    std::string Tag;  // blank until the logic writes it
    bool Visible = true;
    float ScaleWidth = 0;  // inner width, inside the border
    int DrawWidth = 1;     // pen width in pixels
    Bounds bounds;
    int TabIndex = 0;

    void Cls() {
        strokes_.clear();
        ++surface_revision_;
    }
    void Circle(float x, float y, float radius, Colour colour) {
        strokes_.emplace_back(CircleStroke{x, y, radius, colour});
        ++surface_revision_;
    }
    void Line(float x1, float y1, float x2, float y2, Colour colour) {
        strokes_.emplace_back(LineStroke{x1, y1, x2, y2, colour});
        ++surface_revision_;
    }
    const std::vector<Stroke>& strokes() const { return strokes_; }
    // Grows with every Cls, Circle and Line, so a backend sees that the surface changed
    // without keeping its strokes to compare.
    std::uint64_t surface_revision() const { return surface_revision_; }

private:
    std::vector<Stroke> strokes_;
    std::uint64_t surface_revision_ = 0;
};

struct Label {
    std::string Caption;              // UTF-8
    std::optional<Colour> ForeColor;  // empty: the backend's default
    Alignment alignment = Alignment::Left;
    bool word_wrap = false;
    Font font{};
    Bounds bounds;
    int TabIndex = 0;
    friend bool operator==(const Label&, const Label&) = default;
};

// An outline that the backend draws as a rounded rectangle.
struct Shape {
    std::optional<Colour> BorderColor;  // empty: the backend's default
    Bounds bounds;
    friend bool operator==(const Shape&, const Shape&) = default;
};

struct CommandButton {
    std::string Caption;  // UTF-8
    bool Enabled = true;
    Font font{};
    Bounds bounds;
    int TabIndex = 0;
    friend bool operator==(const CommandButton&, const CommandButton&) = default;
};

struct Timer {
    bool Enabled = false;
    int Interval = 0;  // milliseconds
};

// Shows a picture. With stretch the picture is scaled to bounds, else drawn at its own size.
struct Image {
    std::shared_ptr<const Picture> picture;
    bool Visible = true;
    bool Stretch = false;
    Bounds bounds;
};

}  // namespace form
