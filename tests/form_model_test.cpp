// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gtest/gtest.h>

#include <variant>

#include "form/marks.h"
#include "form/text.h"

namespace {

// Tags are compared as text but read as numbers; a blank Tag must read as an empty cell.
TEST(Text, NumericValueOfTags) {
    const std::pair<const char*, int> cases[] = {{"0", 0},    {"1", 1}, {"-1", -1},  {"", 0},
                                                 {" -1", -1}, {"x", 0}, {"12ab", 12}};
    for (const auto& [text, value] : cases) EXPECT_EQ(form::numeric_value(text), value) << text;
    for (const int value : {0, 1, -1}) EXPECT_EQ(form::numeric_value(form::text_of(value)), value);
}

// Marks sit 100 twips inside the cell's inner width, on both axes.
TEST(Marks, GeometryForAThousandTwipCell) {
    form::PictureBox cell;
    cell.ScaleWidth = 1000;
    form::MarkPen pen;

    pen.draw_circle(cell);
    ASSERT_EQ(cell.strokes().size(), 1U);
    EXPECT_EQ(std::get<form::CircleStroke>(cell.strokes()[0]),
              (form::CircleStroke{500, 500, 400, form::kWhite}));
    EXPECT_EQ(cell.Tag, "1");

    cell.Cls();
    pen.draw_cross(cell);
    ASSERT_EQ(cell.strokes().size(), 2U);
    EXPECT_EQ(std::get<form::LineStroke>(cell.strokes()[0]),
              (form::LineStroke{100, 100, 900, 900, form::kBlack}));
    EXPECT_EQ(std::get<form::LineStroke>(cell.strokes()[1]),
              (form::LineStroke{100, 900, 900, 100, form::kBlack}));
    EXPECT_EQ(cell.Tag, "-1");
}

}  // namespace
