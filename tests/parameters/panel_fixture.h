#pragma once

#include "host/parameters/parameter_panel.h"
#include "host/parameters/parameter_view.h"
#include "hostlib/tolvbo32/clock.h"
#include "tests/support/batching_link.h"
#include "tests/support/fake_drive.h"

#include <QAbstractItemModelTester>
#include <QTest>

namespace krt550 {

/// A panel on a small drive, in its window and in stepped time.
class ParameterPanel : public testing::Test {
protected:
    void SetUp() override {
        m_panel.resize(900, 500);
        m_panel.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_panel));
        m_panel.SetDrive(&m_link, m_parameters);
        Find<QCheckBox>("grouped")->setChecked(false);
        Pass(100);
    }

    template <class Widget> Widget* Find(const char* name) { return m_panel.findChild<Widget*>(QLatin1String(name)); }

    void Pass(qint64 milliseconds) {
        for (const qint64 end = m_clock.Now() + milliseconds; m_clock.Now() < end;)
            m_clock.WaitForEvents(end - m_clock.Now());
    }

    CParameterView& View() { return *Find<CParameterView>("parameters"); }
    /// What a line of the panel says; nothing while it is hidden.
    QString Line(const char* name) {
        const auto* line = Find<QLabel>(name);
        return line->isVisible() ? line->text() : QString();
    }
    /// Registers that are shown, without their dots.
    QString Shown() {
        QStringList shown;
        for (int row = 0; row < View().model()->rowCount(); ++row)
            shown.append(View().model()->index(row, 0).data().toString().remove(u'.'));
        return shown.join(u' ');
    }
    QModelIndex Value(const char* reg) {
        const QModelIndexList found = View().model()->match(View().model()->index(0, 0), Qt::DisplayRole, reg, 1,
                                                            Qt::MatchExactly | Qt::MatchRecursive);
        return found.isEmpty() ? QModelIndex() : found.front().siblingAtColumn(int(ParameterColumn::Value));
    }
    QString Text(const char* reg) { return Value(reg).data().toString(); }
    /// Opens the editor of a parameter, as F2 does; null when there is none.
    QWidget* Edit(const char* reg) {
        View().setFocus();
        View().setCurrentIndex(Value(reg));
        QTest::keyClick(&View(), Qt::Key_F2);
        Pass(1);
        return View().indexWidget(Value(reg)) ? View().indexWidget(Value(reg)) : QApplication::focusWidget();
    }
    void Type(const char* reg, const char* text) {
        auto* edit = qobject_cast<QLineEdit*>(Edit(reg));
        ASSERT_TRUE(edit) << reg;
        QTest::keyClicks(edit, text);
        QTest::keyClick(edit, Qt::Key_Return);
        Pass(1);
    }
    QStringList Writes() { return m_drive.TakeLog({"write"}); }

    CSteppedClock m_clock;
    ClockScope m_scope{m_clock};
    std::vector<ParameterDescription> m_parameters = {
        Signal(104, "Speed actual", "rpm"), Bits(701, "Control word", false),
        WithDefault(Number(2005, "Maximum torque", 1, 0, 325, "%"), 100),
        WithDefault(Number(4307, "Integration time", 0, 0, 10000, "ms"), 50),
        List(9802, "Fieldbus", {{0, "None"}, {1, "PROFIBUS"}, {2, kExcludedValue}, {3, "Ethernet"}})};
    FakeDrive m_drive{m_parameters};
    CBatchingLink m_link{m_drive};
    CParameterPanel m_panel{QStringLiteral(KRT550_SOURCE_DIR "/data/Wzkrt550.txt")};
};

} // namespace krt550
