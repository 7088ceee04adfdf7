#include "MapEditor3D/frame/dialogs/AboutDialog.h"

#include "Component/Translation.h"
#include "Util/Host.h"

namespace varn {

namespace {

/// The libraries and files that come with the tool or that it loads.
constexpr WStringView kLicences = u"Qt 6 - GNU LGPL 3\n"
                                  u"libpng - PNG Reference Library License 2\n"
                                  u"zlib - zlib License\n"
                                  u"libjpeg-turbo - IJG License and modified BSD License\n"
                                  u"giflib - MIT License\n"
                                  u"OpenAL Soft - GNU LGPL 2\n"
                                  u"FluidSynth - GNU LGPL 2.1\n"
                                  u"TimGM6mb sound font - GNU GPL 2\n"
                                  u"libmpg123 - GNU LGPL 2.1\n"
                                  u"libogg, libvorbis - BSD 3-Clause License\n"
                                  u"SDL 2 - zlib License\n"
                                  u"VL Gothic - M+ FONTS LICENSE and BSD 3-Clause License\n";

constexpr int kNameHeight = 24;

} // namespace

AboutDialog::AboutDialog() : Dialog(u"About") {}

void AboutDialog::build()
{
    setInitialSize(480, 400);
    setButtons(u"Close", u"");
    BoxLayout rows(getPane(), BoxLayout::Axis::Column, BoxLayout::Margin::None);
    rows.add(name).add(version).add(maker).addSpace(8).add(uses).add(licences, 1);
    name.setFontHeight(kNameHeight);
    name.setText(kProductName);
    version.setText(translateWith(u"Version %1", {fromUtf8(VARN_VERSION)}));
    maker.setText(WString(kMakerName) + u" - " + translate(u"MIT License"));
    maker.setDimmed(true);
    uses.setLabel(u"It stands on the work of &others:");
    uses.setBuddy(licences);
    licences.setReadOnly(true);
    licences.setText(kLicences);
}

} // namespace varn
