// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>

#include "form/layout.h"
#include "form/picture.h"

namespace assets {

// The banner's flip-book: frame 0 blank, each later frame the one before it with a few more
// pixels of the lettering, silver ground and black ink, 225 x 97 pixels each.
std::array<form::Picture, form::layout::kBannerFrameCount> make_banner_frames();

}  // namespace assets
