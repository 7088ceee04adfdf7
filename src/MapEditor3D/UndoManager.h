#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <vector>

namespace varn {

/// Cells of an array from (left, top) up to but not including (right, bottom).
struct CellRect
{
    std::int32_t left = 0, top = 0, right = 0, bottom = 0;

    std::int32_t width() const { return right - left; }
    std::int32_t height() const { return bottom - top; }
};

/// The rectangle of one stroke, with the cells that an undo of it puts back, row by row. Once it is
/// undone, with those that a redo puts back.
template <class T>
struct Undo
{
    CellRect rect;
    std::vector<T> cells;
};

/// What undo works on.
template <class T>
class AbstractUndoableEdit
{
  public:
    virtual ~AbstractUndoableEdit() = default;

    /// The last committed state; rows of `getStride()` elements.
    virtual T* getData() = 0;
    virtual int getStride() const = 0;
    virtual void undone() = 0;
    virtual void redone() = 0;
    /// Behind every push, undo and redo.
    virtual void changed() {}
};

/// The last strokes on an array, as many as `kLimit`. It keeps no log of what a stroke did: a
/// record is the part of the committed array that the stroke is about to replace.
template <class T>
class UndoManager
{
  public:
    static constexpr std::size_t kLimit = 10;

    explicit UndoManager(AbstractUndoableEdit<T>& edit) : edit(edit) {}

    bool canUndo() const { return done > 0; }
    bool canRedo() const { return done < records.size(); }

    /// Keeps a rectangle of the array, before a stroke's result is copied over it. What could be
    /// redone is lost.
    void push(const CellRect& rect)
    {
        records.resize(done);
        if (records.size() == kLimit)
            records.pop_front();
        Undo<T>& record = records.emplace_back(Undo<T>{rect, {}});
        record.cells.resize(static_cast<std::size_t>(rect.width()) *
                            static_cast<std::size_t>(rect.height()));
        exchange(record, [](T* row, T* kept, int width) { std::copy_n(row, width, kept); });
        done = records.size();
        edit.changed();
    }

    /// False: there is nothing to undo.
    bool undo()
    {
        if (!canUndo())
            return false;
        swapCells(records[--done]);
        edit.undone();
        edit.changed();
        return true;
    }
    /// False: there is nothing to redo.
    bool redo()
    {
        if (!canRedo())
            return false;
        swapCells(records[done++]);
        edit.redone();
        edit.changed();
        return true;
    }
    void clear()
    {
        records.clear();
        done = 0;
    }

  private:
    /// Walks the rows of a record beside those of the array.
    template <class PerRow>
    void exchange(Undo<T>& record, PerRow perRow)
    {
        const CellRect& rect = record.rect;
        T* row = edit.getData() + std::ptrdiff_t{rect.top} * edit.getStride() + rect.left;
        T* kept = record.cells.data();
        for (int y = rect.top; y < rect.bottom; ++y) {
            perRow(row, kept, rect.width());
            row += edit.getStride();
            kept += rect.width();
        }
    }
    void swapCells(Undo<T>& record)
    {
        exchange(record,
                 [](T* row, T* kept, int width) { std::swap_ranges(row, row + width, kept); });
    }

    AbstractUndoableEdit<T>& edit;
    std::deque<Undo<T>> records; // the last strokes, the oldest first
    std::size_t done = 0;        // of them stand in the array; the others were undone
};

} // namespace varn
