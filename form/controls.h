// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "form/changes.h"
#include "form/colour.h"

// The controls of a form as plain values: their properties, and for a picture box the strokes
// drawn on its surface. The logic writes these; a backend shows them. All measures are twips
// (15 to the pixel) unless a name says otherwise.
namespace form {

struct Bounds {
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;
};

struct Font {
    const char* face;  // UTF-8
    int weight;        // 400 normal, 700 bold
    double points;
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
// still shows its mark. Drawing marks the cell as changed, as a write of Visible does.
class PictureBox {
public:
    std::string Tag;  // blank until the logic writes it; not shown
    Property<bool> Visible = true;
    float ScaleWidth = 0;  // inner width, inside the border
    int DrawWidth = 1;     // pen width in pixels
    Bounds bounds;
    int TabIndex = 0;

    void Cls() {
        strokes_.clear();
        drawn();
    }
    void Circle(float x, float y, float radius, Colour colour) {
        strokes_.emplace_back(CircleStroke{x, y, radius, colour});
        drawn();
    }
    void Line(float x1, float y1, float x2, float y2, Colour colour) {
        strokes_.emplace_back(LineStroke{x1, y1, x2, y2, colour});
        drawn();
    }
    const std::vector<Stroke>& strokes() const { return strokes_; }

    void watch(Changes& changes, int index) {
        changes_ = &changes;
        control_ = cell_control(index);
        Visible.watch(changes, control_);
    }

private:
    void drawn() {
        if (changes_ != nullptr) changes_->mark(control_);
    }

    std::vector<Stroke> strokes_;
    Changes* changes_ = nullptr;
    Control control_{};
};

struct Label {
    Property<std::string> Caption;              // UTF-8
    Property<std::optional<Colour>> ForeColor;  // empty: the default text colour
    Alignment alignment = Alignment::Left;
    bool word_wrap = false;
    Font font{};
    Bounds bounds;
};

// An outline drawn as a rounded rectangle.
struct Shape {
    Property<std::optional<Colour>> BorderColor;  // empty: the default text colour
    Bounds bounds;
};

struct CommandButton {
    std::string Caption;  // UTF-8
    Property<bool> Enabled = true;
    Font font{};
    Bounds bounds;
    int TabIndex = 0;
};

struct Timer {
    Property<bool> Enabled = false;
    int Interval = 0;  // milliseconds
};

// Shows one of the form's pictures, stretched to its size; Left and Top never change.
struct Image {
    Property<std::optional<int>> Picture;  // which of the form's Image1 pictures; none at first
    int Left = 0;
    int Top = 0;
    Property<int> Width = 0;
    Property<int> Height = 0;

    Bounds bounds() const { return {Left, Top, Width, Height}; }
};

}  // namespace form
