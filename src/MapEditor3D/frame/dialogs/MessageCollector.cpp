#include "MapEditor3D/frame/dialogs/MessageCollector.h"

#include "Component/Translation.h"

namespace varn {

MessageCollector::MessageCollector() : before(host())
{
    setHost(this);
}

MessageCollector::~MessageCollector()
{
    setHost(&before);
}

WString MessageCollector::getAccount() const
{
    constexpr std::size_t kMostLines = 12;
    WString account = summary;
    if (messages.empty())
        return account;
    if (!account.empty())
        account += u"\n\n";
    const int count = static_cast<int>(messages.size());
    account += translateWith(u"Left out (%1):", {toDecimal(count)});
    for (std::size_t i = 0; i < messages.size() && i < kMostLines; ++i)
        account += u"\n- " + messages[i];
    if (messages.size() > kMostLines)
        account += u"\n" + translateWith(u"and %1 more", {toDecimal(count - int{kMostLines})});
    return account;
}

Answer MessageCollector::ask(const Question& question)
{
    Question longer = question;
    const WString account = getAccount();
    if (!account.empty())
        longer.text += u"\n\n" + account;
    messages.clear();
    return before.ask(longer);
}

} // namespace varn
