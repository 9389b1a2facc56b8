#pragma once

// The folder and file lists of a window that picks a place on disk: a folder list that shows the path
// down to the current folder and the folders in it, and a file list of one folder under a pattern.

#include "platform/ui/listbox.h"

#include <QStringList>

namespace hb::ui {

// Lines are the folders from the root down to the current one, then its subfolders. A click highlights
// a line; a double click, or Enter, opens it, which changes path() and raises change().
class DirListBox : public ListBox {
    Q_OBJECT
public:
    explicit DirListBox(QWidget* parent = nullptr);

    QString path() const { return path_; }   // without a trailing separator, except the root
    // False, with nothing changed, when the folder is not there.
    bool setPath(const QString& path);
    // The full path of a line, or the current path for -1.
    QString listPath(int index) const;

signals:
    void change();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void fill();

    QString path_;
    QStringList paths_;
};

// The files of one folder that match a pattern ("*.mdb", or one file's name), in name order.
class FileListBox : public ListBox {
    Q_OBJECT
public:
    explicit FileListBox(QWidget* parent = nullptr);

    QString path() const { return path_; }
    void setPath(const QString& path);       // raises pathChange()
    QString pattern() const { return pattern_; }
    void setPattern(const QString& pattern);
    QString fileName() const;                // the selected line, or empty

signals:
    void pathChange();

private:
    void fill();

    QString path_;
    QString pattern_ = QStringLiteral("*.*");
};

} // namespace hb::ui
