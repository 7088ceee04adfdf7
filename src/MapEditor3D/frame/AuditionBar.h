#pragma once

#include "Audio/Audition.h"
#include "Component/Application.h"
#include "Component/Button.h"
#include "Component/GroupComponent.h"
#include "Component/Label.h"
#include "Component/Slider.h"

#include <functional>

namespace varn {

/// Plays a sound for somebody who chooses one: play and stop, the position, the level, and the seam
/// of its loop where the file has one. For use wherever a sound is chosen.
class AuditionBar final : public GroupComponent
{
  public:
    AuditionBar();

    /// The sound that the buttons are about, a path of the project; what plays stops. Empty: none.
    void setFile(WStringView path);
    /// Plays; goes on or rests where it plays already.
    void play();
    void stop();
    bool isPlaying() const { return audition.isPlaying(); }
    /// Milliseconds of the sound.
    std::uint32_t getPosition() const { return audition.position(); }

    void onCreate() override;
    void destroy() override;

  private:
    /// How loud it is just now.
    class LevelMeter final : public Component
    {
      public:
        LevelMeter();
        void setLevel(float next);
        void onCreate() override;

      protected:
        void paint(Graphics& graphics, const Rect& dirty) override;

      private:
        float level = 0;
    };

    bool open();
    void follow();
    void showState();

    Audition audition;
    WString path;
    Button playButton, stopButton, seamButton;
    GroupComponent buttons, states;
    Slider position;
    Label time, problem;
    LevelMeter meter;
    Timer timer;
};

} // namespace varn
