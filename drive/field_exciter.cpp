#include "drive/field_exciter.h"

#include "drive/register_file.h"
#include "drive/registers.h"

#include <QStringList>

namespace krt550 {
namespace {

constexpr quint16 kFirstExternal = 2;
constexpr int kNodes = 32;

QStringList Names() {
    return QStringLiteral("none onboard external35 external50 external450 second1 second2").split(u' ');
}

} // namespace

bool FieldExciter::Answers(const CRegisterFile& registers) const {
    return type >= kFirstExternal && node != registers.GetWord(reg::kConverterNode);
}

quint16 FieldExciter::FindType(const CRegisterFile& registers) const {
    if (type < kFirstExternal)
        return type;
    return Answers(registers) && node == registers.GetWord(reg::kExciterNode, node) ? type : quint16{0};
}

bool FieldExciter::Serves(const CRegisterFile& registers) const {
    const quint16 used = registers.GetWord(reg::kExciterUsed);
    return used == 0 || used == FindType(registers);
}

QString ExciterNames() {
    return Names().join(QStringLiteral(", "));
}

bool ParseExciter(const QString& text, FieldExciter& exciter) {
    const qsizetype type = Names().indexOf(text.section(u'@', 0, 0));
    const bool placed = text.contains(u'@');
    bool isNumber = true;
    const int node = placed ? text.section(u'@', 1).toInt(&isNumber) : exciter.node;
    if (type < 0 || (placed && type < kFirstExternal) || !isNumber || node < 1 || node > kNodes)
        return false;
    exciter = {static_cast<quint16>(type), static_cast<quint16>(node)};
    return true;
}

} // namespace krt550
