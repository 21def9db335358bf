// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "assets/banner_frames.h"
#include "checked_form.h"
#include "form/colour.h"

namespace {

using form::Picture;

constexpr int kFrames = 93, kWidth = 225, kHeight = 97, kMinStep = 6, kMaxStep = 58;
constexpr int kBoxLeft = 14, kBoxRight = 216, kBoxTop = 33, kBoxBottom = 84;

// Every way in which a flip-book breaks the banner's rules, one line per fault.
std::vector<std::string> frame_faults(const std::vector<Picture>& frames) {
    if (frames.size() != kFrames) return {"has " + std::to_string(frames.size()) + " frames"};
    for (std::size_t k = 0; k < frames.size(); ++k) {
        const auto width = frames[k].width(), height = frames[k].height();
        if (width != kWidth || height != kHeight) {
            return {"frame " + std::to_string(k) + " is " + std::to_string(width) + "x" +
                    std::to_string(height)};
        }
    }
    std::vector<std::string> faults;
    for (std::size_t k = 0; k < frames.size(); ++k) {
        const Picture& frame = frames[k];
        const std::string name = "frame " + std::to_string(k);
        if (frame.ground() != form::kSilver || frame.ink() != form::kBlack) {
            faults.push_back(name + " has colours other than silver and black");
        }
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x) {
                const bool inside =
                    x >= kBoxLeft && x <= kBoxRight && y >= kBoxTop && y <= kBoxBottom;
                const char* fault = frame.is_ink(x, y) ? (inside ? nullptr : " inks (")
                                    : k > 0 && frames[k - 1].is_ink(x, y) ? " loses ("
                                                                          : nullptr;
                if (fault)
                    faults.push_back(name + fault + std::to_string(x) + "," + std::to_string(y) +
                                     ")");
            }
        }
        const int added = frame.ink_count() - (k == 0 ? 0 : frames[k - 1].ink_count());
        if (k == 0 ? added != 0 : (added < kMinStep || added > kMaxStep)) {
            faults.push_back(name + " adds " + std::to_string(added) + " ink pixels");
        }
    }
    if (frames.back().ink_count() != 2685) faults.push_back("the last frame is not 2685 pixels");
    return faults;
}

std::vector<Picture> real_frames() {
    std::vector<Picture> frames;
    for (const auto& frame : assets::make_banner_frames()) frames.push_back(*frame);
    return frames;
}

// A copy of `picture` without the ink at (skip_x, skip_y).
Picture without(const Picture& picture, int skip_x, int skip_y) {
    Picture copy(picture.width(), picture.height(), picture.ground(), picture.ink());
    for (int i = 0; i < kWidth * kHeight; ++i) {
        const int x = i % kWidth, y = i / kWidth;
        if (picture.is_ink(x, y) && !(x == skip_x && y == skip_y)) copy.set_ink(x, y);
    }
    return copy;
}

// Rebuilds frame k as frame k - 1 plus `step` of the pixels frame k + 1 adds, at the first k
// where frame k + 1 still adds an allowed number.
void make_step(std::vector<Picture>& frames, int step) {
    for (std::size_t k = 1; k + 1 < frames.size(); ++k) {
        const int rest = frames[k + 1].ink_count() - frames[k - 1].ink_count() - step;
        if (rest < kMinStep || rest > kMaxStep) continue;
        frames[k] = frames[k - 1];
        for (int i = 0, added = 0; added < step && i < kWidth * kHeight; ++i) {
            const int x = i % kWidth, y = i / kWidth;
            if (!frames[k + 1].is_ink(x, y) || frames[k].is_ink(x, y)) continue;
            frames[k].set_ink(x, y);
            ++added;
        }
        return;
    }
}

TEST(BannerFrames, GeneratedFramesKeepEveryRule) {
    const auto frames = real_frames();
    EXPECT_THAT(frame_faults(frames), testing::IsEmpty());

    // The mean column of the ink added in each quarter of the animation moves right.
    double previous_mean = 0;
    for (std::size_t quarter = 0; quarter < 4; ++quarter) {
        const auto &before = frames[quarter * 23], &after = frames[quarter * 23 + 23];
        double sum = 0;
        int count = 0;
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x) {
                if (after.is_ink(x, y) && !before.is_ink(x, y)) {
                    sum += x;
                    ++count;
                }
            }
        }
        EXPECT_GT(sum / count, previous_mean + 20) << "quarter " << quarter;
        previous_mean = sum / count;
    }

    std::size_t bytes = 0;
    for (const auto& frame : frames) bytes += frame.bits().size();
    EXPECT_LT(bytes, 300'000U);
}

TEST(BannerFrames, EachBreakageIsCaught) {
    using Frames = std::vector<Picture>;
    const std::pair<const char*, std::function<void(Frames&)>> cases[] = {
        {"adds 5 ink", [](Frames& f) { make_step(f, kMinStep - 1); }},
        {"adds 59 ink", [](Frames& f) { make_step(f, kMaxStep + 1); }},
        {"frame 40 loses",
         [](Frames& f) {
             int i = 0;  // the first pixel that frame 1 inks, and every later frame too
             while (!f[1].is_ink(i % kWidth, i / kWidth)) ++i;
             f[40] = without(f[40], i % kWidth, i / kWidth);
         }},
        {"frame 10 has colours",
         [](Frames& f) { f[10] = Picture(kWidth, kHeight, form::kSilver, 0x80); }},
        {"frame 92 inks (13,50)", [](Frames& f) { f[92].set_ink(kBoxLeft - 1, 50); }},
        {"frame 92 inks (100,85)", [](Frames& f) { f[92].set_ink(100, kBoxBottom + 1); }},
        {"frame 0 adds 1", [](Frames& f) { f[0].set_ink(100, 50); }},
        {"frame 5 is 224x97", [](Frames& f) { f[5] = Picture(224, kHeight, 0, 0); }},
        {"has 92 frames", [](Frames& f) { f.pop_back(); }},
    };
    for (const auto& [fault, breakage] : cases) {
        auto frames = real_frames();
        breakage(frames);
        EXPECT_THAT(frame_faults(frames), testing::Contains(testing::HasSubstr(fault)));
    }
}

// Which of Image1 Image2 shows, or -1.
int shown_frame(const game::Form1& form) {
    for (int k = 0; k < kFrames; ++k) {
        if (form.Image2.picture == form.Image1[static_cast<std::size_t>(k)].picture) return k;
    }
    return -1;
}

TEST(BannerTicks, TwoCyclesUpAndDown) {
    testing_support::ScriptedForm game;
    auto& form = game.form;
    const auto frames = assets::make_banner_frames();
    for (std::size_t k = 0; k < frames.size(); ++k) {
        EXPECT_EQ(*form.Image1[k].picture, *frames[k]) << "frame " << k;
        EXPECT_FALSE(form.Image1[k].Visible);
    }
    EXPECT_EQ(form.Image2.picture, nullptr);
    EXPECT_EQ(form.Image2.bounds, (form::Bounds{6000, 120, 1575, 855}));

    // 0, 1, ... 92, 91, ... 0, twice: frame 92 once a cycle, frame 0 at both of its ends.
    std::vector<int> expected, shown;
    for (int cycle = 0; cycle < 2; ++cycle) {
        for (int k = 0; k < kFrames; ++k) expected.push_back(k);
        for (int k = kFrames - 2; k >= 0; --k) expected.push_back(k);
    }
    for (std::size_t t = 0; t < expected.size(); ++t) {
        form.tick(form::TimerId::Timer3);
        shown.push_back(shown_frame(form));
        const auto [width, height] =
            shown.back() == 0 ? std::pair{1600, 700} : std::pair{3624, 1620};
        if (shown.back() == 0 || shown.back() == 92) {
            EXPECT_EQ(form.Image2.bounds, (form::Bounds{6000, 120, width, height})) << t;
        }
        // The turning points leave the next frame: 91 after 92, 0 again after 0.
        if (t == 92 || t == 184) {
            EXPECT_EQ(form.banner.frame_no, t == 92 ? 91 : 0);
            EXPECT_EQ(form.banner.frame_back, t == 92 ? 1 : 0);
        }
    }
    EXPECT_EQ(shown, expected);
}

}  // namespace
