#pragma once

#include "Component/Dialog.h"

#include <functional>

namespace varn {

/// Shows how far long work is, with a button that cancels it. The work runs on the main thread and
/// reports; the window stays alive between reports.
class ProgressDialog
{
  public:
    /// @param english  what is being done
    ProgressDialog(BaseWindow* parent, WStringView english);
    ~ProgressDialog();
    /// @param part  of @p whole that is done. False: the person cancelled.
    bool report(std::uint64_t part, std::uint64_t whole, WStringView what);
    bool isCancelled() const;

  private:
    struct Implementation;
    std::unique_ptr<Implementation> implementation;
};

} // namespace varn
