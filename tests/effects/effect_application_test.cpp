// The order of an application's steps, what each failure leaves behind, and what progress does to the window.
// SPDX-License-Identifier: MIT
#include "effects/effect_application.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "canvas/surface.h"
#include "effects/catalogue/catalogue.h"
#include "effects/catalogue/pix_twix.h"
#include "effects/effect_controls.h"
#include "effects/render_window.h"
#include "engine/image_view.h"
#include "tests/effects/sample_picture.h"

namespace kelu {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> log;        // what happened, in order
std::function<void()> duringRender;  // runs inside the test rows' render
EffectInputs received;               // by the last render

class ScriptedControls : public EffectControls {
 public:
    int XCoordinate() const override { return Read("x", x); }
    int YCoordinate() const override { return Read("y", 13); }
    qint32 PickerValue(int picker) const override {
        return Read("color" + std::to_string(picker), picker == 1 ? color1 : PickerColor(4, 5, 6));
    }
    int SliderValue(int slider) const override { return Read("slider" + std::to_string(slider), 10 * slider); }

    int x = 22;
    qint32 color1 = PickerColor(1, 2, 3);
    std::string failing;

 private:
    int Read(const std::string& what, int value) const {
        log.push_back(what);
        if (what == failing) throw std::runtime_error(what);
        return value;
    }
};

class ScriptedWindow : public RenderWindow {
 public:
    void SetFormEnabled(bool enabled) override { log.push_back(enabled ? "open" : "shut"); }
    void SetProgressVisible(bool visible) override { log.push_back(visible ? "show bar" : "hide bar"); }
    void SetProgress(int percent) override { log.push_back(std::to_string(percent)); }
    void RunEventLoopOnce() override {
        log.push_back("loop");
        if (inLoop) inLoop();
    }
    std::function<void()> inLoop;
};

void LogRender(const engine::ImageView&, const engine::MutableImageView& target, const EffectInputs& inputs,
               const engine::Run&) {
    log.push_back("engine");
    received = inputs;
    for (int y = 0; y < target.height; ++y) std::fill_n(target.Row(y), target.width, 0xff123456u);
    if (duringRender) duringRender();
}

Effect PlainRow() { return {.listText = "", .render = LogRender}; }

// A row with every kind of input at once.
Effect FullRow() {
    Effect row = PlainRow();
    row.sliders = {{{"One", 0, 100, 1}, {"Two", 0, 100, 2}}};
    row.coordinates = Coordinates::ShownAndReset;
    row.color1 = {"First", 0};
    row.color2 = {"Second", 0};
    row.render = LogRender;
    return row;
}

class EffectApplicationTest : public testing::Test {
 protected:
    EffectApplicationTest()
        : application(
              canvas, pen, engine, state, controls, window,
              {[] { log.push_back("brush"); }, [] { log.push_back("reminder"); }, [] { log.push_back("no memory"); }}) {
        log.clear();
        duringRender = nullptr;
        received = {};
        state.ImageActive = true;
        canvas.SetPicture(SamplePicture(31, 23));
        QObject::connect(&pen, &Surface::PictureReplaced, &pen, [] { log.push_back("pen"); });
    }

    Surface canvas, pen;
    PixTwix engine;
    SharedState state;
    ScriptedControls controls;
    ScriptedWindow window;
    EffectApplication application;
};

TEST_F(EffectApplicationTest, StepsFollowInOrder) {
    duringRender = [this] {
        EXPECT_EQ(engine.Picture(), canvas.Picture());
        EXPECT_EQ(pen.Picture(), canvas.Picture());
        EXPECT_FALSE(state.EffectReady);
    };
    application.ApplySFX(FullRow());
    EXPECT_THAT(log, ElementsAre("x", "y", "pen", "color1", "color2", "slider1", "slider2", "engine", "loop", "pen",
                                 "brush", "reminder"));
    EXPECT_EQ(received.x, 22);
    EXPECT_EQ(received.y, 13);
    EXPECT_EQ(received.color1, (ColorBytes{1, 2, 3}));
    EXPECT_EQ(received.color2, (ColorBytes{4, 5, 6}));
    EXPECT_EQ(received.slider, (std::array{10, 20, 0}));
    EXPECT_EQ(pen.Picture().pixel(30, 22), 0xff123456u);
    EXPECT_TRUE(state.EffectReady);
    EXPECT_FALSE(state.ImageDirty);
}

TEST_F(EffectApplicationTest, AFailingRenderLeavesTheCanvasOnThePenAndArmsTheBrush) {
    duringRender = [] { throw std::runtime_error("engine"); };
    application.ApplySFX(PlainRow());
    EXPECT_THAT(log, ElementsAre("pen", "engine", "loop", "brush", "reminder"));
    EXPECT_FALSE(application.EffectResult());
    EXPECT_TRUE(state.EffectReady);
    EXPECT_EQ(pen.Picture(), canvas.Picture());

    // For want of memory: that is told, on whichever picture it is rendered.
    duringRender = [] { throw std::bad_alloc(); };
    for (const Fills fills : {Fills::Engine, Fills::Pen}) {
        Effect row = PlainRow();
        row.fills = fills;
        application.ApplySFX(row);
        EXPECT_EQ(log.back(), "no memory");
        log.pop_back();
    }
    EXPECT_EQ(log.back(), "reminder");
}

TEST_F(EffectApplicationTest, AFailingStepIsPassedOver) {
    controls.failing = "x";
    application.ApplySFX(FullRow());
    EXPECT_EQ(received.x, 0);
    EXPECT_EQ(received.y, 13);

    controls.failing = "color1";
    controls.x = 7;
    application.ApplySFX(FullRow());
    EXPECT_EQ(received.color1, ColorBytes{});
    EXPECT_EQ(received.color2, (ColorBytes{4, 5, 6}));

    // The slider belongs to the engine's call: no call then, the rest as after a refusal.
    controls.failing = "slider1";
    log.clear();
    application.ApplySFX(FullRow());
    EXPECT_THAT(log, ElementsAre("x", "y", "pen", "color1", "color2", "slider1", "loop", "brush", "reminder"));
}

TEST_F(EffectApplicationTest, EngineProgressShutsAndOpensTheWindow) {
    duringRender = [this] {
        Q_EMIT engine.FxProgress(7);
        Q_EMIT engine.FxProgress(100);
    };
    std::vector<bool> active;
    window.inLoop = [&] { active.push_back(state.ImageActive); };
    application.ApplySFX(PlainRow());
    EXPECT_THAT(log, ElementsAre("pen", "engine", "shut", "show bar", "7", "loop", "open", "hide bar", "loop", "loop",
                                 "pen", "brush", "reminder"));
    EXPECT_THAT(active, ElementsAre(false, true, true));
}

TEST_F(EffectApplicationTest, AClickDuringTheRenderIsIgnored) {
    state.CurrentSFX = 35;
    int clicks = 0;
    window.inLoop = [&] {
        ++clicks;
        application.ApplyClick();
    };
    duringRender = [this] {
        Q_EMIT engine.FxProgress(50);
        Q_EMIT engine.FxProgress(100);
    };
    application.ApplySFX(PlainRow());
    EXPECT_EQ(clicks, 3) << "in both reports and in the step after the call, where nothing is shut any more";
    EXPECT_EQ(std::count(log.begin(), log.end(), "reminder"), 1);
}

TEST_F(EffectApplicationTest, AnOperationThatForgetsItsLastReportDoesNotLeaveTheWindowShut) {
    duringRender = [this] {
        Q_EMIT engine.FxProgress(50);
        throw std::runtime_error("broke off");
    };
    application.ApplySFX(PlainRow());
    EXPECT_THAT(log, ElementsAre("pen", "engine", "shut", "show bar", "50", "loop", "open", "hide bar", "loop", "loop",
                                 "brush", "reminder"));
    EXPECT_TRUE(state.ImageActive);
}

TEST_F(EffectApplicationTest, ARowThatFillsThePenLeavesTheEngineAlone) {
    engine.SetPicture(SamplePicture(4, 4));
    Effect row = FullRow();
    row.fills = Fills::Pen;
    application.ApplySFX(row);
    EXPECT_THAT(log, ElementsAre("x", "y", "pen", "color1", "color2", "slider1", "slider2", "engine", "pen", "brush",
                                 "reminder"));
    EXPECT_EQ(engine.Picture(), SamplePicture(4, 4));
    EXPECT_EQ(pen.Picture().pixel(30, 22), 0xff123456u);
    EXPECT_EQ(canvas.Picture(), SamplePicture(31, 23));
    EXPECT_EQ(FindEffect(48)->fills, Fills::Pen);
}

TEST_F(EffectApplicationTest, ClicksThatDoNothing) {
    for (int number : {0, static_cast<int>(Catalogue().size()) + 1, 99}) {
        state.CurrentSFX = static_cast<std::int16_t>(number);
        application.ApplyClick();
    }
    state.CurrentSFX = 35;
    state.ImageActive = false;
    application.ApplyClick();
    EXPECT_THAT(log, IsEmpty());
    EXPECT_FALSE(state.EffectReady);
}

TEST_F(EffectApplicationTest, EachApplicationStartsFromTheCanvasAsPainted) {
    state.CurrentSFX = 35;
    application.ApplyClick();
    const QImage once = pen.Picture();
    EXPECT_EQ(once, canvas.Picture().mirrored(true, false));
    application.ApplyClick();
    EXPECT_EQ(pen.Picture(), once);

    canvas.SelectBrush(pen.MakeBrush(9));
    canvas.DrawBrushLine(5, 5, 20, 15, 255);
    ASSERT_NE(canvas.Picture(), SamplePicture(31, 23));
    application.ApplyClick();
    EXPECT_EQ(pen.Picture(), canvas.Picture().mirrored(true, false));
}

}  // namespace
}  // namespace kelu
