#include "MapEditor3D/frame/panes/SceneSettingPane.h"

#include "Component/Translation.h"
#include "MapEditor3D/frame/panes/MapPictureChoice.h"

namespace varn {

SceneSettingPane::SceneSettingPane(WizMapEditor& editor)
    : editor(editor), fog(u"&Fog"), distantView(u"Fill the &distance"),
      music(ResourceCategory::BackgroundMusic, ResourceChoice::Naming::FileName),
      sound(ResourceCategory::BackgroundSound, ResourceChoice::Naming::FileName)
{
    editor.addListener(*this);
}

SceneSettingPane::~SceneSettingPane()
{
    editor.removeListener(*this);
}

void SceneSettingPane::onCreate()
{
    BoxLayout(*this, BoxLayout::Axis::Column, BoxLayout::Margin::None).add(scroll, 1);
    FormLayout form(scroll.getContent());
    form.addRow(u"&Visible distance:", visibleDistance);
    visibleDistance.setHint(u"Cells that one sees ahead; 0: as the system says");
    form.addRow(fog);
    form.addRow(u"Fog &color:", fogColor);
    form.addRow(distantView);
    for (const MapPictureField& field : mapPictureFields()) {
        if (!field.isInView())
            continue;
        pictures.push_back({field.type, makePictureChoice(field)});
        ResourceChoice& choice = *pictures.back().choice;
        form.addRow(field.label, choice).setBuddy(choice.getList());
        choice.onAction([this, &choice, type = field.type] {
            edit([&](WizMap& map) { map.setImageName(type, choice.getName()); });
        });
    }
    form.addRow(u"&Music:", music).setBuddy(music.getList());
    form.addRow(u"Background &sound:", sound).setBuddy(sound.getList());
    form.addWide(audition);

    visibleDistance.onAction([this] {
        edit([this](WizMap& map) { map.setVisibleDistance(visibleDistance.getValue()); });
    });
    fog.onAction([this] { edit([this](WizMap& map) { map.fogEnabled = fog.isChecked(); }); });
    fogColor.on(kChangeListener, [this](const EventObject&) {
        edit([this](WizMap& map) { map.fogColor = fogColor.getColor(); });
    });
    distantView.onAction(
        [this] { edit([this](WizMap& map) { map.fillDistantView = distantView.isChecked(); }); });
    music.onAction([this] {
        audition.setFile(music.getPath());
        edit([this](WizMap& map) { map.bgm = music.getName(); });
    });
    sound.onAction([this] {
        audition.setFile(sound.getPath());
        edit([this](WizMap& map) { map.bgs = sound.getName(); });
    });
    showMap();
}

void SceneSettingPane::reload()
{
    for (const Picture& picture : pictures)
        picture.choice->refresh();
    music.refresh();
    sound.refresh();
}

void SceneSettingPane::showMap()
{
    if (!music.getHandle() || editing)
        return;
    const WizMap& map = editor.getMap();
    following = true;
    visibleDistance.setValue(map.getStoredVisibleDistance());
    fog.setChecked(map.fogEnabled);
    fogColor.setColor(map.fogColor);
    distantView.setChecked(map.fillDistantView);
    for (const Picture& picture : pictures)
        picture.choice->setName(map.getImageName(picture.type));
    music.setName(map.bgm);
    sound.setName(map.bgs);
    audition.setFile(music.getPath());
    following = false;
}

void SceneSettingPane::edit(const std::function<void(WizMap&)>& change)
{
    if (following)
        return;
    editing = true;
    change(editor.getMap());
    editor.propertiesEdited();
    editing = false;
}

} // namespace varn
