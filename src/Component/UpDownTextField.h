#pragma once

#include "Component/Component.h"

namespace varn {

/// A number field with two arrows; its action is a change.
class UpDownTextField : public Component
{
  public:
    explicit UpDownTextField(int least = 0, int most = 99) : least(least), most(most) {}

    int getValue() const;
    void setValue(int value);
    void setRange(int nextLeast, int nextMost);
    void setStep(int step);
    /// Shown behind the number: " %", " px".
    void setUnit(WStringView unit);

  protected:
    bool paintsItself() const override { return false; }
    NativeHandle makeHandle(NativeHandle parent) override;

  private:
    int least, most;
};

/// A number with a fraction.
class DecimalField : public Component
{
  public:
    DecimalField(double least, double most, int digits, double step)
        : least(least), most(most), step(step), digits(digits)
    {}

    double getValue() const;
    void setValue(double value);

  protected:
    bool paintsItself() const override { return false; }
    NativeHandle makeHandle(NativeHandle parent) override;

  private:
    double least, most, step;
    int digits;
};

} // namespace varn
