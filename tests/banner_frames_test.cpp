#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "assets/banner/banner_data.h"
#include "assets/banner_frames.h"
#include "form/colour.h"
#include "scripted_form.h"

namespace {

using form::Picture;
using testing::HasSubstr;

constexpr int kFrames = 93;
constexpr int kWidth = 225;
constexpr int kHeight = 97;
constexpr int kFinalInk = 2685;
constexpr int kMinStep = 6;
constexpr int kMaxStep = 58;
constexpr int kBoxLeft = 14, kBoxRight = 216, kBoxTop = 33, kBoxBottom = 84;

std::string at(int x, int y) { return "(" + std::to_string(x) + "," + std::to_string(y) + ")"; }

// Every way in which a flip-book breaks the banner's rules, one line per fault.
std::vector<std::string> frame_faults(const std::vector<Picture>& frames) {
    std::vector<std::string> faults;
    if (frames.size() != kFrames) return {"has " + std::to_string(frames.size()) + " frames"};
    for (int k = 0; k < kFrames; ++k) {
        const Picture& frame = frames[static_cast<std::size_t>(k)];
        const std::string name = "frame " + std::to_string(k);
        if (frame.width() != kWidth || frame.height() != kHeight) {
            faults.push_back(name + " is " + std::to_string(frame.width()) + "x" +
                             std::to_string(frame.height()));
            continue;
        }
        if (frame.ground() != form::kSilver || frame.ink() != form::kBlack) {
            faults.push_back(name + " has colours other than silver and black");
        }
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x) {
                const bool inside =
                    x >= kBoxLeft && x <= kBoxRight && y >= kBoxTop && y <= kBoxBottom;
                if (frame.is_ink(x, y) && !inside) faults.push_back(name + " inks " + at(x, y));
                if (k > 0 && frames[static_cast<std::size_t>(k) - 1].is_ink(x, y) &&
                    !frame.is_ink(x, y)) {
                    faults.push_back(name + " loses " + at(x, y));
                }
            }
        }
        const int added =
            k == 0 ? frame.ink_count()
                   : frame.ink_count() - frames[static_cast<std::size_t>(k) - 1].ink_count();
        if (k == 0 && added != 0) faults.push_back("frame 0 is not blank");
        if (k > 0 && (added < kMinStep || added > kMaxStep)) {
            faults.push_back(name + " adds " + std::to_string(added) + " ink pixels");
        }
    }
    if (const int ink = frames.back().ink_count(); ink != kFinalInk) {
        faults.push_back("last frame holds " + std::to_string(ink));
    }
    return faults;
}

std::vector<Picture> real_frames() {
    std::vector<Picture> frames;
    for (const auto& frame : assets::make_banner_frames()) frames.push_back(*frame);
    return frames;
}

// The frames that the pen order gives with other counts, to break the steps on purpose.
std::vector<Picture> frames_with_counts(const std::vector<int>& counts) {
    const auto order = assets::banner::pen_order();
    std::vector<Picture> frames;
    Picture page(kWidth, kHeight, form::kSilver, form::kBlack);
    for (int k = 0, done = 0; k < kFrames; ++k) {
        for (; done < counts[static_cast<std::size_t>(k)]; ++done) {
            page.set_ink(order[static_cast<std::size_t>(done)] % 256,
                         order[static_cast<std::size_t>(done)] / 256);
        }
        frames.push_back(page);
    }
    return frames;
}

// Moves ink between frame k and k + 1 so that frame k adds exactly `step`, choosing the first
// k where frame k + 1 still adds an allowed number.
std::vector<Picture> frames_with_step(int step) {
    const auto real = assets::banner::ink_counts();
    std::vector<int> counts(real.begin(), real.end());
    for (std::size_t k = 1; k + 1 < counts.size(); ++k) {
        const int next = counts[k + 1] - counts[k - 1] - step;
        if (next >= kMinStep && next <= kMaxStep) {
            counts[k] = counts[k - 1] + step;
            return frames_with_counts(counts);
        }
    }
    ADD_FAILURE() << "no frame can be made to add " << step;
    return {};
}

// A copy of `picture` with other colours, or without the ink at (x, y).
Picture repainted(const Picture& picture, form::Colour ground, form::Colour ink, int skip_x = -1,
                  int skip_y = -1) {
    Picture copy(picture.width(), picture.height(), ground, ink);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.is_ink(x, y) && !(x == skip_x && y == skip_y)) copy.set_ink(x, y);
        }
    }
    return copy;
}

TEST(BannerFrames, GeneratedFramesKeepEveryRule) {
    EXPECT_THAT(frame_faults(real_frames()), testing::IsEmpty());
}

TEST(BannerFrames, EachBreakageIsCaught) {
    struct Case {
        const char* what;
        std::function<std::vector<Picture>()> broken;
        const char* fault;
    };
    const std::vector<Case> cases = {
        {"a frame adds 5", [] { return frames_with_step(kMinStep - 1); }, "adds 5 ink pixels"},
        {"a frame adds 59", [] { return frames_with_step(kMaxStep + 1); }, "adds 59 ink pixels"},
        {"an ink pixel disappears",
         [] {
             auto frames = real_frames();
             const auto first = assets::banner::pen_order()[0];
             frames[40] =
                 repainted(frames[40], form::kSilver, form::kBlack, first % 256, first / 256);
             return frames;
         },
         "frame 40 loses"},
        {"a third colour",
         [] {
             auto frames = real_frames();
             frames[10] = repainted(frames[10], form::kSilver, 0x000080);
             return frames;
         },
         "frame 10 has colours"},
        {"ink left of the box",
         [] {
             auto frames = real_frames();
             frames[92].set_ink(kBoxLeft - 1, 50);
             return frames;
         },
         "frame 92 inks (13,50)"},
        {"ink below the box",
         [] {
             auto frames = real_frames();
             frames[92].set_ink(100, kBoxBottom + 1);
             return frames;
         },
         "frame 92 inks (100,85)"},
        {"frame 0 not blank",
         [] {
             auto frames = real_frames();
             for (auto& frame : frames) frame.set_ink(100, 50);
             return frames;
         },
         "frame 0 is not blank"},
        {"a frame of the wrong size",
         [] {
             auto frames = real_frames();
             frames[5] = Picture(kWidth - 1, kHeight, form::kSilver, form::kBlack);
             return frames;
         },
         "frame 5 is 224x97"},
        {"one frame short",
         [] {
             auto frames = real_frames();
             frames.pop_back();
             return frames;
         },
         "has 92 frames"},
    };
    for (const auto& c : cases) {
        EXPECT_THAT(frame_faults(c.broken()), testing::Contains(HasSubstr(c.fault))) << c.what;
    }
}

TEST(BannerFrames, LetteringGrowsFromLeftToRight) {
    // The mean column of the ink added in each quarter of the animation moves right.
    const auto frames = real_frames();
    double previous_mean = 0;
    for (int quarter = 0; quarter < 4; ++quarter) {
        const auto& before = frames[static_cast<std::size_t>(quarter * 23)];
        const auto& after = frames[static_cast<std::size_t>(quarter * 23 + 23)];
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
        ASSERT_GT(count, 0) << "quarter " << quarter;
        EXPECT_GT(sum / count, previous_mean + 20) << "quarter " << quarter;
        previous_mean = sum / count;
    }
}

TEST(BannerFrames, AllFramesTogetherAreSmall) {
    std::size_t bytes = 0;
    for (const auto& frame : assets::make_banner_frames()) bytes += frame->bits().size();
    EXPECT_LT(bytes, 300'000U);
}

// The frames Timer3 shows over `cycles` whole cycles: up to 92, down to 0, and round again.
std::vector<int> expected_frames(int cycles) {
    std::vector<int> shown;
    for (int c = 0; c < cycles; ++c) {
        for (int k = 0; k < kFrames; ++k) shown.push_back(k);
        for (int k = kFrames - 2; k >= 0; --k) shown.push_back(k);
    }
    return shown;
}

// Which of Image1 Image2 shows, or -1.
int shown_frame(const game::Form1& form) {
    for (int k = 0; k < kFrames; ++k) {
        if (form.Image2.picture == form.Image1[static_cast<std::size_t>(k)].picture) return k;
    }
    return -1;
}

TEST(BannerTicks, FormLoadsTheFramesHidden) {
    testing_support::ScriptedForm scripted;
    const auto frames = assets::make_banner_frames();
    for (int k = 0; k < kFrames; ++k) {
        const auto& image = scripted.form.Image1[static_cast<std::size_t>(k)];
        ASSERT_NE(image.picture, nullptr) << "frame " << k;
        EXPECT_EQ(*image.picture, *frames[static_cast<std::size_t>(k)]) << "frame " << k;
        EXPECT_FALSE(image.Visible);
    }
    EXPECT_EQ(scripted.form.Image2.picture, nullptr);
    EXPECT_EQ(scripted.form.Image2.bounds, (form::Bounds{6000, 120, 1575, 855}));
}

TEST(BannerTicks, TwoCyclesShowEveryFrameUpAndDown) {
    testing_support::ScriptedForm scripted;
    const auto expected = expected_frames(2);
    ASSERT_EQ(expected.size(), 370U);
    std::vector<int> shown;
    for (std::size_t t = 0; t < expected.size(); ++t) {
        scripted.form.tick(form::TimerId::Timer3);
        shown.push_back(shown_frame(scripted.form));
    }
    EXPECT_EQ(shown, expected);
    EXPECT_EQ(std::count(shown.begin(), shown.begin() + 185, 92), 1);
    EXPECT_EQ(shown[184], 0);
    EXPECT_EQ(shown[185], 0);
}

TEST(BannerTicks, SizeFollowsTheFrame) {
    struct Case {
        int ticks;  // Timer3 ticks before the frame is shown
        int frame;
        int width, height;
    };
    const Case cases[] = {
        {1, 0, 1600, 700}, {2, 1, 1622, 710}, {93, 92, 3624, 1620}, {94, 91, 3602, 1610}};
    for (const auto& c : cases) {
        testing_support::ScriptedForm scripted;
        for (int t = 0; t < c.ticks; ++t) scripted.form.tick(form::TimerId::Timer3);
        ASSERT_EQ(shown_frame(scripted.form), c.frame);
        EXPECT_EQ(scripted.form.Image2.bounds, (form::Bounds{6000, 120, c.width, c.height}))
            << "frame " << c.frame;
    }
}

TEST(BannerTicks, TurningPointsLeaveTheNextFrame) {
    testing_support::ScriptedForm scripted;
    auto& banner = scripted.form.banner;
    for (int t = 0; t < 93; ++t) scripted.form.tick(form::TimerId::Timer3);
    EXPECT_EQ(banner.frame_no, 91);  // frame 92 has just been shown
    EXPECT_EQ(banner.frame_back, 1);
    for (int t = 0; t < 92; ++t) scripted.form.tick(form::TimerId::Timer3);
    EXPECT_EQ(banner.frame_no, 0);  // frame 0 has just been shown on the way down
    EXPECT_EQ(banner.frame_back, 0);
}

}  // namespace
