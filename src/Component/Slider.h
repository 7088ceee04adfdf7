#pragma once

#include "Component/Component.h"

namespace varn {

/// A track and a thumb; its action is a change.
class Slider : public Component
{
  public:
    explicit Slider(int least = 0, int most = 100) : least(least), most(most) {}

    int getValue() const;
    void setValue(int value);
    void setRange(int nextLeast, int nextMost);
    /// The person holds the thumb.
    bool isDragging() const;

  protected:
    bool paintsItself() const override { return false; }
    NativeHandle makeHandle(NativeHandle parent) override;

  private:
    int least, most;
};

/// A scroll bar beside what it scrolls; its action is a scroll by hand.
class ScrollStrip : public Component
{
  public:
    enum class Axis
    {
        Level,
        Upright
    };

    explicit ScrollStrip(Axis axis) : axis(axis) {}

    /// @param whole  length of what is scrolled, of which `page` is seen
    void setRange(int whole, int page, int step);
    int getValue() const;
    void setValue(int value);

  protected:
    bool paintsItself() const override { return false; }
    NativeHandle makeHandle(NativeHandle parent) override;

  private:
    Axis axis;
};

/// Progress from 0 to 100, or a level.
class ProgressBar : public Component
{
  public:
    void setValue(int value);
    /// Without a number in it.
    void setTextVisible(bool visible);

  protected:
    bool paintsItself() const override { return false; }
    NativeHandle makeHandle(NativeHandle parent) override;
};

} // namespace varn
