// The screens' plain parts: the action list's columns.
#include "screens/action_list.h"

#include <QTest>

using namespace amorra;

class ScreenPartsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void listRowsSplitIntoColumnsAtRunsOfTabs_data();
    void listRowsSplitIntoColumnsAtRunsOfTabs();
};

void ScreenPartsTest::listRowsSplitIntoColumnsAtRunsOfTabs_data()
{
    QTest::addColumn<QString>("row");
    QTest::addColumn<QStringList>("columns");

    QTest::newRow("gift: one tab") << "Flowers\t$40" << QStringList{"Flowers", "$40"};
    QTest::newRow("date: three tabs are one break")
        << "High class restaurant\t\t\t$120" << QStringList{"High class restaurant", "$120"};
    QTest::newRow("job: three columns, label spaces kept")
        << "Tutor          \t$100\tNOT available today" << QStringList{"Tutor          ", "$100", "NOT available today"};
    QTest::newRow("question: no tabs") << "Do you read much?" << QStringList{"Do you read much?"};
}

void ScreenPartsTest::listRowsSplitIntoColumnsAtRunsOfTabs()
{
    QFETCH(QString, row);
    QFETCH(QStringList, columns);
    QCOMPARE(rowColumns(row), columns);
}

QTEST_MAIN(ScreenPartsTest)
#include "screen_parts_test.moc"
