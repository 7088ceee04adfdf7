#pragma once

#include "Component/GroupComponent.h"
#include "Component/Label.h"

namespace varn {

/// Arranges the children of a pane in a row or a column. A child that has no native window yet is
/// made in the pane. The arrangement lives as long as the pane; this is only its handle.
class BoxLayout
{
  public:
    enum class Axis
    {
        Row,
        Column
    };
    enum class Margin
    {
        None,
        Normal
    };

    BoxLayout(BaseWindow& pane, Axis axis, Margin margin = Margin::Normal);
    /// Goes on with the row or column that a pane has.
    explicit BoxLayout(BaseWindow& pane) : pane(pane) {}

    /// @param stretch  the child's share of the room that is left; 0: what it needs
    BoxLayout& add(BaseWindow& child, int stretch = 0);
    BoxLayout& addStretch();
    BoxLayout& addSpace(int pixels);

  private:
    BaseWindow& pane;
};

/// Children in columns and rows of a grid, counted from 0.
class GridLayout
{
  public:
    explicit GridLayout(BaseWindow& pane, int gap,
                        BoxLayout::Margin margin = BoxLayout::Margin::Normal);
    GridLayout& add(BaseWindow& child, int column, int row);
    /// The column and row that take the room that is left.
    GridLayout& stretch(int column, int row);

  private:
    BaseWindow& pane;
};

/// Fields below each other, each with its label before it and a place for what is wrong below it.
/// Labels carry mnemonics and name their controls to screen readers.
class FormLayout
{
  public:
    /// The pane owns the labels that the form makes.
    explicit FormLayout(GroupComponent& pane, BoxLayout::Margin margin = BoxLayout::Margin::Normal);

    /// @param english  "&Name:"; @return the label
    Label& addRow(WStringView english, BaseWindow& control);
    /// Without a label, as wide as the controls.
    void addRow(BaseWindow& control);
    /// As wide as the form.
    void addWide(BaseWindow& control);
    /// What is wrong with a field, told below it and to screen readers; empty: nothing is.
    void setProblem(BaseWindow& control, WStringView text);

  private:
    GroupComponent& pane;
    std::vector<std::pair<BaseWindow*, Label*>> problems;
};

} // namespace varn
