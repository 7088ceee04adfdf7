#pragma once

#include "Component/ComboBox.h"
#include "Component/GroupComponent.h"
#include "Component/Label.h"
#include "Game/Map/GameResourceManager.h"

namespace varn {

/// Chooses a file of the resource catalogue, with a small picture beside it where it is one. A file
/// that the catalogue does not list stays as it is and is shown as such. Its action is another
/// choice.
class ResourceChoice final : public GroupComponent
{
  public:
    /// How the map names what is chosen.
    enum class Naming
    {
        Path,    ///< "Graphics/Dungeon/wall.png"
        FileName ///< "cloister.mid"
    };

    explicit ResourceChoice(ResourceCategory category, Naming naming = Naming::Path)
        : categories{category}, naming(naming)
    {}
    /// Files of a fixed list beside the catalogue's.
    ResourceChoice(std::vector<ResourceCategory> categories, std::vector<WString> more,
                   Naming naming = Naming::Path)
        : categories(std::move(categories)), more(std::move(more)), naming(naming)
    {}

    /// Empty: none.
    WString getName() const;
    void setName(WStringView name);
    /// The file in the project: a bare name lies in the category's folder. Empty: none.
    WString getPath() const;
    /// Fills the list anew, behind a change of the catalogue.
    void refresh();

    /// What the label of the choice belongs to.
    ComboBox& getList() { return list; }
    void onCreate() override;
    void setFocus() override { list.setFocus(); }

  protected:
    void applyTexts() override;

  private:
    void fill();
    void showNames();
    void showPicture();

    std::vector<ResourceCategory> categories;
    std::vector<WString> more;
    Naming naming;
    std::vector<WString> names; ///< of the entries; the first is none
    ComboBox list;
    Label picture;
};

} // namespace varn
