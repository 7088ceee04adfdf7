#include "Game/Database/StateModel.h"

#include "Game/Database/FieldBuilders.h"
#include "Parser/StoredText.h"

namespace varn {

namespace {

/// The texts of one slot, language by language. They are decoded as stored text, while the writer
/// escapes them as plain text: a backslash or an entity that a message spells out is read once
/// more.
void readSlot(StateModel& state, std::size_t slot, const Element& message)
{
    std::size_t language = 0;
    for (const Element* child = message.getFirstChild(); child; child = child->getNextSibling())
        if (child->getTagName() == u"language")
            state.setMessage(slot, language++, decodeText(child->collectText(), LineBreaks::Keep));
}

void readMessages(GameRow& row, const Element& element, Faults&)
{
    StateModel& state = static_cast<StateModel&>(row);
    for (std::size_t slot = 0; slot < StateModel::kMessageCount; slot++)
        for (std::size_t language = 0; language < 2; language++)
            state.setMessage(slot, language, {});
    std::size_t slot = 0;
    for (const Element* child = element.getFirstChild(); child; child = child->getNextSibling())
        if (child->getTagName() == u"message")
            readSlot(state, slot++, *child);
}

void writeMessages(const GameRow& row, Element& element)
{
    const StateModel& state = static_cast<const StateModel&>(row);
    for (std::size_t slot = 0; slot < StateModel::kMessageCount; slot++) {
        Element* const message = element.addElement(u"message");
        for (std::size_t language = 0; language < 2; language++)
            message->addElement(u"language")->addText(state.getMessage(slot, language));
    }
}

constexpr WrittenRule kHasIcon = {
    u"0 or more",
    [](const GameRow& row) { return static_cast<const StateModel&>(row).getIcon() >= 0; },
};

constexpr WStringView kMessageLabels[] = {
    u"Message 1", u"Message 1 (Second Language)", u"Message 2", u"Message 2 (Second Language)",
    u"Message 3", u"Message 3 (Second Language)", u"Message 4", u"Message 4 (Second Language)",
};
static_assert(std::size(kMessageLabels) == StateModel::kMessageCount * 2);

constexpr CodedTexts kMessageTexts = {
    kMessageLabels,
    [](const GameRow& row, std::size_t index) {
        return static_cast<const StateModel&>(row).getMessage(index / 2, index % 2);
    },
    [](GameRow& row, std::size_t index, WStringView text) {
        static_cast<StateModel&>(row).setMessage(index / 2, index % 2, text);
    },
};

constexpr Codec kMessages = {
    readMessages, writeMessages,
    u"four children `message`, each with two children `language` that hold the first and the "
    u"second "
    u"language's text; read as stored text (entities, `\\n`), line breaks kept",
    &kMessageTexts};

} // namespace

const FieldTable& StateModel::fieldTable()
{
    using Row = StateModel;
    using Record = WizCharStateData_;
    static constexpr Field kFields[] = {
        field<&Row::record, &Record::name>(u"name", u"Name"),
        field<&Row::record, &Record::removalConditions>(u"removalConditions",
                                                        u"Removal Conditions"),
        field<&Row::record, &Record::actionRestriction>(u"actionRestriction",
                                                        u"Action Restriction"),
        field<&Row::record, &Record::recoverRateOnAttack>(u"recoverRateOnAttack",
                                                          u"Recovery When Attacked")
            .by(Control::Percent),
        field<&Row::record, &Record::recoverRateOnAction>(u"recoverRateOnAction",
                                                          u"Recovery on Action")
            .by(Control::Percent),
        field<&Row::record, &Record::recoverRateOnStep>(u"recoverRateOnStep", u"Recovery on Step")
            .by(Control::Percent),
        field<&Row::record, &Record::failureRateOnAttack>(u"failureRateOnAttack", u"Attack Failure")
            .by(Control::Percent),
        field<&Row::record, &Record::failureRateOnMagic>(u"failureRateOnMagic", u"Magic Failure")
            .by(Control::Percent),
        field<&Row::record, &Record::failureRateOnSkill>(u"failureRateOnSkill", u"Skill Failure")
            .by(Control::Percent),
        field<&Row::record, &Record::hpChangeValueOnAction>(u"hpChangeValueOnAction",
                                                            u"HP Change on Action"),
        field<&Row::record, &Record::hpChangeRateOnAction>(u"hpChangeRateOnAction",
                                                           u"HP Change on Action (Percent)")
            .by(Control::Percent),
        field<&Row::record, &Record::priority>(u"priority", u"Priority"),
        field<&Row::record, &Record::deathState>(u"deathState", u"Death State").by(Control::YesNo),
        field<&Row::record, &Record::nextStateID>(u"nextStateID", u"Next State").to(u"States"),
        field<&Row::record, &Record::baseFee>(u"baseFee", u"Base Fee"),
        field<&Row::icon>(u"icon", u"Icon").orElse(-1).when(kHasIcon),
        field<&Row::name2>(u"name2", u"Name (Second Language)"),
        coded(kMessages, u"message", u"Messages"),
    };
    static constexpr FieldTable kTable =
        recordTable<&Row::record>(u"StateModel", kFields).withChildren();
    return kTable;
}

const WString& StateModel::getMessage(std::size_t slot, std::size_t language) const
{
    static const WString kNone;
    return slot < kMessageCount && language < 2 ? messages[slot][language] : kNone;
}

void StateModel::setMessage(std::size_t slot, std::size_t language, WStringView text)
{
    if (slot < kMessageCount && language < 2)
        messages[slot][language] = text;
}

const TableInfo StateDatabase::kInfo = {
    u"StateDatabase", u"States", u"State.dat", u"State.dat", 16, &StateModel::fieldTable,
};

} // namespace varn
