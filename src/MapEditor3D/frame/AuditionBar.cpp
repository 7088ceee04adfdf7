#include "MapEditor3D/frame/AuditionBar.h"

#include "Component/Layout.h"
#include "Component/Theme.h"
#include "Component/Translation.h"
#include "Util/ProjectPath.h"

#include <algorithm>
#include <cmath>

namespace varn {

namespace {

constexpr int kFollowMs = 40;
constexpr std::uint32_t kLoud = 0x2020E0; // above this part of the meter
constexpr float kLoudFrom = 0.9F;

/// "1:02.5"
WString timeText(std::uint32_t ms)
{
    const auto seconds = static_cast<std::int64_t>(ms / 1000);
    const WString small = toDecimal(seconds % 60);
    return toDecimal(seconds / 60) + (small.size() < 2 ? u":0" : u":") + small + u"." +
           toDecimal(ms % 1000 / 100);
}

} // namespace

// The meter

AuditionBar::LevelMeter::LevelMeter()
{
    setAccessibleName(u"Loudness");
}

void AuditionBar::LevelMeter::onCreate()
{
    setFixedSize(120, 12);
    setTabStop(false);
}

/// Up at once, down slowly, as the eye likes it.
void AuditionBar::LevelMeter::setLevel(float next)
{
    constexpr float kFall = 0.06F;
    const float shown = std::max(next, level - kFall);
    if (shown == level)
        return;
    level = std::clamp(shown, 0.0F, 1.0F);
    repaint();
}

void AuditionBar::LevelMeter::paint(Graphics& graphics, const Rect&)
{
    const int width = graphics.getWidth(), height = graphics.getHeight();
    graphics.setFillColor(theme().line);
    graphics.fillRect(0, 0, width, height);
    graphics.setFillColor(theme().field);
    graphics.fillRect(1, 1, width - 2, height - 2);
    // A quarter power spreads the quiet half of the scale.
    const int inside = width - 4;
    const int lit = static_cast<int>(std::sqrt(level) * static_cast<float>(inside));
    const int loud = static_cast<int>(std::sqrt(kLoudFrom) * static_cast<float>(inside));
    graphics.setFillColor(theme().accent);
    graphics.fillRect(2, 2, std::min(lit, loud), height - 4);
    if (lit > loud) {
        graphics.setFillColor(kLoud);
        graphics.fillRect(2 + loud, 2, lit - loud, height - 4);
    }
}

// The bar

AuditionBar::AuditionBar()
    : playButton(u"&Play"), stopButton(u"S&top"), seamButton(u"Play the sea&m"),
      timer([this] { follow(); })
{}

void AuditionBar::onCreate()
{
    GroupComponent::onCreate();
    BoxLayout rows(*this, BoxLayout::Axis::Column, BoxLayout::Margin::None);
    rows.add(buttons).add(position).add(states).add(problem);
    BoxLayout row(buttons, BoxLayout::Axis::Row, BoxLayout::Margin::None);
    row.add(playButton).add(stopButton).add(seamButton).addStretch();
    BoxLayout state(states, BoxLayout::Axis::Row, BoxLayout::Margin::None);
    state.add(meter).add(time).addStretch();
    playButton.setIcon(u"play");
    playButton.setHint(u"Play Sound");
    stopButton.setHint(u"Stop Sound");
    seamButton.setHint(u"Plays from two seconds before the end of the loop, over it");
    position.setAccessibleName(u"Position");
    problem.setWarning(true);
    problem.setWrapped(true);
    playButton.onAction([this] { play(); });
    stopButton.onAction([this] { stop(); });
    seamButton.onAction([this] {
        if (!open())
            return;
        audition.playSeam();
        timer.start(kFollowMs);
        showState();
    });
    position.onAction([this] { audition.seek(static_cast<std::uint32_t>(position.getValue())); });
    setFile(path);
}

void AuditionBar::destroy()
{
    timer.stop();
    audition.close();
    GroupComponent::destroy();
}

/// The file is opened here, so that its length and its loop are known before it plays.
void AuditionBar::setFile(WStringView next)
{
    timer.stop();
    audition.close();
    path = next;
    open();
    showState();
}

bool AuditionBar::open()
{
    if (path.empty() || audition.isOpen())
        return audition.isOpen();
    const bool opened = audition.open(path);
    problem.setText(opened ? WString() : u"\u26A0 " + audition.getError());
    position.setRange(0, static_cast<int>(audition.duration()));
    return opened;
}

void AuditionBar::play()
{
    if (!open())
        return;
    if (audition.isPaused())
        audition.resume();
    else if (audition.isPlaying())
        audition.pause();
    else
        audition.play();
    timer.start(kFollowMs);
    showState();
}

void AuditionBar::stop()
{
    audition.stop();
    timer.stop();
    showState();
}

void AuditionBar::follow()
{
    if (!audition.isPlaying())
        timer.stop();
    showState();
}

void AuditionBar::showState()
{
    const bool opened = audition.isOpen(), playing = audition.isPlaying();
    playButton.setEnabled(opened);
    playButton.setLabel(playing && !audition.isPaused() ? u"&Pause" : u"&Play");
    playButton.setIcon(playing && !audition.isPaused() ? u"pause" : u"play");
    stopButton.setEnabled(playing);
    seamButton.setVisible(opened && audition.hasLoop());
    position.setEnabled(opened);
    problem.setVisible(!opened && !path.empty());
    if (!position.isDragging())
        position.setValue(static_cast<int>(audition.position()));
    time.setText(opened ? timeText(audition.position()) + u" / " + timeText(audition.duration())
                        : WString());
    meter.setLevel(playing ? audition.level() : 0);
}

} // namespace varn
