#pragma once

#include "Component/Dialog.h"
#include "Component/TextArea.h"

namespace varn {

/// Name, version, maker and the libraries that the tool stands on, with their licences.
class AboutDialog final : public Dialog
{
  public:
    AboutDialog();

  protected:
    void build() override;

  private:
    Label name, version, maker, uses;
    TextArea licences;
};

} // namespace varn
