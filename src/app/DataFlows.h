#pragma once
// The class's data in and out of the window: CSV export and import, adding another pupil's file
// to the class sample, and the worksheet of the analysis page that shows, printed or as a PDF.
// The menu's "Data" group and Ctrl+E / Ctrl+P call these.

#include <QObject>
#include <QString>

#include <functional>

class AveragesPage;
class ComparePage;
class DataColumn;
class GroupsPage;
class RecordPage;
namespace zrt {
struct CollectedLists;
struct Worksheet;
} // namespace zrt

class DataFlows : public QObject {
    Q_OBJECT
public:
    struct Pages {
        DataColumn *column;
        RecordPage *record;
        AveragesPage *averages;
        GroupsPage *groups;
        ComparePage *compare;
    };
    DataFlows(QWidget *owner, const Pages &pages);

    void exportCsv();
    void importCsv();
    void addClassFile();
    // The worksheet of the analysis page that shows: to the printer, or to a PDF file.
    void worksheet(bool pdf);
    // What the worksheet of the page that shows holds; false on the Record page.
    bool currentWorksheet(zrt::Worksheet &sheet) const;

Q_SIGNALS:
    // New lists for the column (import, added class file): the window shows them as it shows an
    // opened file, then refreshes the analysis.
    void listsReplaced(const zrt::CollectedLists &lists, bool paired, bool saved);

private:
    QString askFile(const QString &filter, const QString &title, bool save) const;

    QWidget *m_owner;
    Pages m_pages;
};
