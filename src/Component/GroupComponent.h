#pragma once

#include "Component/Component.h"

namespace varn {

/// A plain pane with children.
class GroupComponent : public Component
{
  public:
    /// A child that the pane owns, made in it at once.
    template <class Child, class... Arguments>
    Child& add(Arguments&&... arguments)
    {
        auto made = std::make_unique<Child>(std::forward<Arguments>(arguments)...);
        Child& child = *made;
        children.push_back(std::move(made));
        child.create(this);
        return child;
    }
    const std::vector<std::unique_ptr<BaseWindow>>& getChildren() const { return children; }
    using Component::create;
    bool create(BaseWindow* parent) override;

  protected:
    bool paintsItself() const override { return false; }
    NativeHandle makeHandle(NativeHandle parent) override;

  private:
    std::vector<std::unique_ptr<BaseWindow>> children;
};

/// A pane with a frame and a caption.
class GroupBox : public GroupComponent
{
  public:
    explicit GroupBox(WStringView english = {});
    WString getText() const override;
    void setText(WStringView text) override;

  protected:
    NativeHandle makeHandle(NativeHandle parent) override;
};

/// A pane that shows a part of a larger one, with scroll bars.
class ScrollPane : public GroupComponent
{
  public:
    /// The larger one, in which controls are laid out; it grows to the width of this one.
    GroupComponent& getContent() { return content; }
    void onCreate() override;

  protected:
    NativeHandle makeHandle(NativeHandle parent) override;

  private:
    GroupComponent content;
};

/// Panes side by side or one above the other, with a handle between that the person moves.
class Splitter : public GroupComponent
{
  public:
    explicit Splitter(bool sideBySide = true) : sideBySide(sideBySide) {}

    /// Pixels of the panes, in order.
    std::vector<int> getSizes() const;
    void setSizes(const std::vector<int>& sizes);

  protected:
    NativeHandle makeHandle(NativeHandle parent) override;

  private:
    bool sideBySide;
};

} // namespace varn
