#include "host/play/arguments.h"

#include <QKeySequence>

#include <limits>

namespace krt550 {
namespace {

constexpr int kMaxInt = std::numeric_limits<int>::max();

bool ReadNumber(const QString& word, int minimum, int maximum, int& number) {
    bool ok = false;
    number = word.toInt(&ok);
    return ok && number >= minimum && number <= maximum;
}

QString Bad(const char* what, const QString& word) {
    return QStringLiteral("\"%1\" is not %2").arg(word, QLatin1String(what));
}

QString ReadControl(const QString& word, Arguments& arguments) {
    arguments.number = ControlOfName(word);
    if (arguments.number != 0 || ReadNumber(word, 1, kMaxInt, arguments.number))
        return {};
    return Bad("a control id or the name of a button", word);
}

QString ReadRegister(const QString& word, Arguments& arguments) {
    arguments.byRegister = true;
    return ReadNumber(word, 100, 65535, arguments.number) ? QString() : Bad("a register", word);
}

QString ReadTarget(const QString& word, Arguments& arguments) {
    const QLatin1String prefix("id:");
    return word.startsWith(prefix) ? ReadControl(word.mid(prefix.size()), arguments) : ReadRegister(word, arguments);
}

QString ReadAnswer(const QString& word, Arguments& arguments) {
    constexpr std::pair<const char*, BoxAnswer> answers[] = {
        {"ok", BoxAnswer::Ok}, {"cancel", BoxAnswer::Cancel}, {"yes", BoxAnswer::Yes}, {"no", BoxAnswer::No}};
    for (const auto& [name, answer] : answers) {
        if (word == QLatin1String(name)) {
            arguments.answer = answer;
            return {};
        }
    }
    return Bad("ok, cancel, yes or no", word);
}

QString ReadKey(const QString& word, Arguments& arguments) {
    arguments.text = word;
    const QKeySequence keys = QKeySequence::fromString(word, QKeySequence::PortableText);
    return keys.count() == 1 && keys[0].key() != Qt::Key_unknown ? QString() : Bad("a key", word);
}

/// A word of 16 bits as a PLC writes it: -875, 65000 or 0x047F.
QString ReadPlcValue(const QString& word, Arguments& arguments) {
    bool ok = false;
    const int value = word.startsWith(QLatin1String("0x")) ? word.mid(2).toInt(&ok, 16) : word.toInt(&ok);
    arguments.value = value;
    return ok && value >= -0x8000 && value <= 0xFFFF ? QString() : Bad("a word of 16 bits", word);
}

/// Takes all the words: a terminal and what lies there.
QString ReadTerminal(QStringList words, Arguments& arguments) {
    const QString name = words.takeFirst();
    const std::optional<Terminal> terminal = ParseTerminal(name);
    if (!terminal)
        return QStringLiteral("\"%1\" is no terminal; there are %2").arg(name, TerminalNames());
    QString error;
    const auto value = ParseTerminalValue(*terminal, words.join(QLatin1Char(' ')), error);
    arguments.terminal = *terminal;
    arguments.value = value.value_or(0);
    return error;
}

QString ReadWord(ArgumentKind kind, const QString& word, Arguments& arguments) {
    switch (kind) {
    case ArgumentKind::Control:
        return ReadControl(word, arguments);
    case ArgumentKind::Target:
        return ReadTarget(word, arguments);
    case ArgumentKind::Register:
        return ReadRegister(word, arguments);
    case ArgumentKind::PageIndex:
        return ReadNumber(word, 1, 16, arguments.number) ? QString() : Bad("a page from 1 to 16", word);
    case ArgumentKind::Number:
        return ReadNumber(word, 0, kMaxInt, arguments.number) ? QString() : Bad("a number", word);
    case ArgumentKind::Percent:
        return ReadNumber(word, 0, 100, arguments.number) ? QString() : Bad("a number from 0 to 100", word);
    case ArgumentKind::Tolerance:
        return ReadNumber(word, 0, 100, arguments.percent) ? QString() : Bad("a number from 0 to 100", word);
    case ArgumentKind::Seconds:
        return ReadSeconds(word, arguments.seconds) ? QString() : Bad("a number of seconds", word);
    case ArgumentKind::PlcWord:
        return ReadNumber(word, 1, 12, arguments.number) ? QString() : Bad("a word from 1 to 12", word);
    case ArgumentKind::Word:
        return ReadPlcValue(word, arguments);
    case ArgumentKind::Answer:
        return ReadAnswer(word, arguments);
    case ArgumentKind::KeyName:
        return ReadKey(word, arguments);
    case ArgumentKind::None:
    case ArgumentKind::Terminal:
    case ArgumentKind::Text:
    case ArgumentKind::OptionalText:
        break;
    }
    return {};
}

} // namespace

bool ReadSeconds(const QString& word, double& seconds) {
    bool ok = false;
    seconds = word.toDouble(&ok);
    return ok && seconds > 0 && seconds <= 86400;
}

QString ReadArguments(const std::pair<ArgumentKind, ArgumentKind>& kinds, QStringList words, Arguments& arguments) {
    for (const ArgumentKind kind : {kinds.first, kinds.second}) {
        if (kind == ArgumentKind::None)
            continue;
        if (words.isEmpty() && kind != ArgumentKind::OptionalText)
            return QStringLiteral("something is missing at the end");
        if (kind == ArgumentKind::Text || kind == ArgumentKind::OptionalText) {
            arguments.hasText = !words.isEmpty();
            arguments.text = words.join(QLatin1Char(' '));
            return {};
        }
        if (kind == ArgumentKind::Terminal)
            return ReadTerminal(words, arguments);
        if (const QString error = ReadWord(kind, words.takeFirst(), arguments); !error.isEmpty())
            return error;
    }
    return words.isEmpty() ? QString() : QStringLiteral("\"%1\" is too much").arg(words.join(QLatin1Char(' ')));
}

} // namespace krt550
