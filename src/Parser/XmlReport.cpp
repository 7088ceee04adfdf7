#include "Parser/XmlReport.h"

#include "Util/Host.h"
#include "Util/ProjectPath.h"

#include <algorithm>

namespace varn {

namespace {

constexpr std::size_t kShownBehindFault = 10;
constexpr WStringView kRule = u"-----------------------------------------\r\n";
static_assert(kRule.size() == 41 + 2);

} // namespace

WString composeReport(WStringView fileName, WStringView text, const XmlFault& fault)
{
    const WStringView before = text.substr(0, static_cast<std::size_t>(fault.place - text.data()));
    const auto row = 1 + std::count(before.begin(), before.end(), u'\n');
    const std::size_t lineStart = before.rfind(u'\n') + 1; // npos, on the first line, gives 0
    const std::size_t column = before.size() - lineStart;

    WString report = u"Exception at ";
    report += fileName;
    report += u": Row:" + toDecimal(row) + u". Col:" +
              toDecimal(static_cast<std::int64_t>(column)) + u".\r\n";
    report += kRule;
    report += text.substr(lineStart, column + kShownBehindFault);
    report += u"  <--- Please fix here.\r\n";
    report += kRule;
    report += fault.message;
    return report;
}

void showReport(WStringView fileName, WStringView report)
{
    if (!isFile(fileName)) {
        host().showMessage(report);
        return;
    }
    Question question;
    question.text = WString(report) + u"\r\n";
    question.text += kRule;
    question.text += u"Do you want to open the xml file?";
    if (host().ask(question) == Answer::Yes)
        host().editText(toWide(resolveProjectPath(fileName)));
}

} // namespace varn
