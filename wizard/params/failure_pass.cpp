#include "wizard/params/failure_pass.h"

#include "hostlib/tolvbo32/parameter_group.h"
#include "wizard/params/parameter_access.h"

#include <QStringList>

#include <algorithm>
#include <utility>
#include <vector>

namespace krt550 {
namespace {

constexpr int kNamesShown = 12;

/// Failures that differ in nothing but the parameter.
struct Cause {
    QString key;
    QString text; ///< of the first one
    QStringList parameters;
};

int g_passes = 0;
std::vector<Cause> g_causes;
LossMemory* g_memory = nullptr;

QString NameOf(const CParameterSet& parameter) {
    return RegisterText(parameter) + QLatin1Char(' ') + parameter.GetName();
}

/// The library's text without what names the parameter.
QString CauseOf(const CParameterSet& parameter, QString text) {
    const CParameterGroup* parent = parameter.GetParent();
    const QString group = parent ? parent->GetIndex() : QString();
    for (const QString& name :
         {parameter.GetName(), group + QLatin1Char('.') + parameter.GetIndex(), group + parameter.GetIndex()})
        if (!name.isEmpty())
            text.replace(name, QString());
    return text;
}

/// What a cause says behind whether the parameter was read or written.
QString ReasonOf(const QString& cause) {
    static const QString verdict = QStringLiteral(" failed: ");
    const auto end = cause.indexOf(verdict);
    return end < 0 ? cause : cause.mid(end + verdict.size());
}

void Tell(const Cause& cause) {
    QString text = cause.text;
    if (cause.parameters.size() > 1) {
        text += QLatin1String("\n\nThe same happened with:\n") +
                cause.parameters.mid(1, kNamesShown).join(QLatin1Char('\n'));
        if (const auto further = cause.parameters.size() - 1 - kNamesShown; further > 0)
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
    const QString key = CauseOf(parameter, text);
    auto cause = std::ranges::find(g_causes, key, &Cause::key);
    if (cause == g_causes.end()) {
        if (LossMemory::Knows(ReasonOf(key)))
            return true;
        if (g_passes == 0)
            return false;
        cause = g_causes.insert(cause, {key, text, {}});
    }
    if (const QString name = NameOf(parameter); !cause->parameters.contains(name))
        cause->parameters.append(name);
    return true;
}

LossMemory::Scope::Scope(LossMemory& memory) : m_isOutermost(!g_memory) {
    if (m_isOutermost)
        g_memory = &memory;
}

LossMemory::Scope::~Scope() {
    if (m_isOutermost)
        g_memory = nullptr;
}

bool LossMemory::Knows(const QString& reason) {
    if (!g_memory)
        return false;
    const auto known = g_memory->m_reasons.size();
    g_memory->m_reasons.insert(reason);
    return g_memory->m_reasons.size() == known;
}

void LossMemory::NoteAnswer() {
    if (g_memory)
        g_memory->m_reasons.clear();
}

bool LossMemory::IsLost() {
    return g_memory && !g_memory->m_reasons.isEmpty();
}

} // namespace krt550
