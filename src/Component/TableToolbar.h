#pragma once

#include "Component/Button.h"
#include "Component/ToolWindow.h"

namespace varn {

/// The buttons beside a small table: one more row, one less, up and down. Not owned rows, but what
/// listens changes them.
class TableToolbar : public ToolWindow
{
  public:
    class PlusButton : public Button
    {
      public:
        PlusButton();
    };
    class MinusButton : public Button
    {
      public:
        MinusButton();
    };
    class DirectionButton : public Button
    {
      public:
        explicit DirectionButton(bool upwards);
        bool isUpwards() const { return upwards; }

      private:
        bool upwards;
    };

    /// Told when a button is pressed.
    class Listener
    {
      public:
        virtual ~Listener() = default;
        virtual void plusPressed(TableToolbar& bar) = 0;
        virtual void minusPressed(TableToolbar& bar) = 0;
        virtual void directionPressed(TableToolbar& bar, bool upwards) = 0;
    };

    /// @param ordered  rows can be moved up and down
    explicit TableToolbar(bool ordered = true);

    /// Borrowed.
    void setListener(Listener* next) { listener = next; }
    void onCreate() override;
    PlusButton& getPlus() { return plus; }
    MinusButton& getMinus() { return minus; }
    DirectionButton& getUp() { return up; }
    DirectionButton& getDown() { return down; }

  protected:
    NativeHandle makeHandle(NativeHandle parent) override;

  private:
    Listener* listener = nullptr;
    bool ordered;
    PlusButton plus;
    MinusButton minus;
    DirectionButton up{true}, down{false};
};

} // namespace varn
