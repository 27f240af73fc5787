#include "wizard/params/failure_pass.h"

#include "hostlib/tolvbo32/parameter_group.h"
#include "wizard/params/parameter_access.h"

#include <QRegularExpression>
#include <QSet>
#include <QStringList>

#include <algorithm>
#include <utility>
#include <vector>

namespace krt550 {
namespace {

constexpr int kNamesShown = 12;

/// Failures for the same reason.
struct Cause {
    QString reason;
    QString text; ///< of the first one
    QStringList parameters;
    QStringList lines; ///< the same, as they are shown
};

int g_passes = 0;
std::vector<Cause> g_causes;
QSet<QString> g_told; ///< reasons, since the drive last answered
int g_scopes = 0;

QString NameOf(const CParameterSet& parameter) {
    return RegisterText(parameter) + QLatin1Char(' ') + parameter.GetName();
}

/// The library's text without what names the parameter, and from where it says why reading or writing failed.
QString ReasonOf(const CParameterSet& parameter, QString text) {
    static const QString verdict = QStringLiteral(" failed: ");
    if (const auto end = text.indexOf(verdict); end >= 0)
        text.remove(0, end + verdict.size());
    const CParameterGroup* parent = parameter.GetParent();
    const QString group = parent ? parent->GetIndex() : QString();
    for (const QString& name :
         {parameter.GetName(), group + QLatin1Char('.') + parameter.GetIndex(), group + parameter.GetIndex()})
        if (!name.isEmpty()) // as a word: a port may hold the same digits
            text.remove(QRegularExpression(QStringLiteral("(?<!\\w)%1(?!\\w)").arg(QRegularExpression::escape(name))));
    return text;
}

/// What the library has tried: the word that its text begins with.
QString AttemptOf(const QString& text) {
    return text.section(QLatin1Char(' '), 0, 0).toLower();
}

void Tell(const Cause& cause) {
    QString text = cause.text;
    if (cause.lines.size() > 1) {
        text +=
            QLatin1String("\n\nThe same happened with:\n") + cause.lines.mid(1, kNamesShown).join(QLatin1Char('\n'));
        if (const auto further = cause.lines.size() - 1 - kNamesShown; further > 0)
            text += QStringLiteral("\nand %1 more").arg(further);
    }
    ShowMessageBox(text, MessageIcon::Stop);
}

} // namespace

FailurePass::FailurePass() {
    ++g_passes;
}

FailurePass::~FailurePass() {
    if (--g_passes > 0)
        return;
    const std::vector<Cause> causes = std::exchange(g_causes, {});
    for (const Cause& cause : causes)
        Tell(cause);
}

bool FailurePass::Take(const CParameterSet& parameter, const QString& text) {
    const QString reason = ReasonOf(parameter, text);
    auto cause = std::ranges::find(g_causes, reason, &Cause::reason);
    if (cause == g_causes.end()) {
        if (LossMemory::Knows(reason))
            return true;
        if (g_passes == 0)
            return false;
        cause = g_causes.insert(cause, {reason, text, {}, {}});
    }
    const QString name = NameOf(parameter);
    if (cause->parameters.contains(name))
        return true;
    const QString attempt = AttemptOf(text);
    cause->parameters.append(name);
    cause->lines.append(attempt == AttemptOf(cause->text) ? name : QStringLiteral("%1 (%2)").arg(name, attempt));
    return true;
}

LossMemory::Scope::Scope(Since since) {
    if (g_scopes++ == 0 && since == Since::Now)
        g_told.clear();
}

LossMemory::Scope::~Scope() {
    --g_scopes;
}

bool LossMemory::Knows(const QString& reason) {
    const auto told = g_told.size();
    g_told.insert(reason);
    return g_scopes > 0 && g_told.size() == told;
}

void LossMemory::NoteAnswer() {
    g_told.clear();
}

bool LossMemory::IsLost() {
    return g_scopes > 0 && !g_told.isEmpty();
}

} // namespace krt550
