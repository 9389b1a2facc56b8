#include "platform/ui/folderlists.h"

#include <QDir>
#include <QFileInfo>
#include <QKeyEvent>

namespace hb::ui {

namespace {

QString cleanFolder(const QString& path)
{
    QString clean = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    return clean.isEmpty() ? QStringLiteral("/") : clean;
}

} // namespace

DirListBox::DirListBox(QWidget* parent) : ListBox(parent, false, Single)
{
    connect(this, &ListBox::doubleClick, this, [this] { setPath(listPath(listIndex())); });
}

bool DirListBox::setPath(const QString& path)
{
    const QString folder = cleanFolder(path);
    if (!QFileInfo(folder).isDir())
        return false;
    const bool changed = folder != path_;
    path_ = folder;
    fill();
    if (changed)
        emit change();
    return true;
}

QString DirListBox::listPath(int index) const { return index >= 0 && index < paths_.size() ? paths_.at(index) : path_; }

// The ancestors stand indented by depth, the current folder last among them, its subfolders below it.
void DirListBox::fill()
{
    clearList();
    paths_.clear();
    QStringList chain;
    for (QDir dir(path_);; ) {
        chain.prepend(dir.absolutePath());
        if (dir.isRoot() || !dir.cdUp())
            break;
    }
    int depth = 0;
    for (const QString& folder : chain) {
        const QString name = folder == QLatin1String("/") ? folder : QFileInfo(folder).fileName();
        addItem(QString(depth++ * 2, QLatin1Char(' ')) + name);
        paths_ << folder;
    }
    const QStringList subfolders = QDir(path_).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase);
    for (const QString& sub : subfolders) {
        addItem(QString(depth * 2, QLatin1Char(' ')) + sub);
        paths_ << QDir(path_).filePath(sub);
    }
    setListIndex(int(chain.size()) - 1);
}

void DirListBox::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        setPath(listPath(listIndex()));
        return;
    }
    ListBox::keyPressEvent(event);
}

FileListBox::FileListBox(QWidget* parent) : ListBox(parent, false, Single) {}

void FileListBox::setPath(const QString& path)
{
    path_ = cleanFolder(path);
    fill();
    emit pathChange();
}

void FileListBox::setPattern(const QString& pattern)
{
    pattern_ = pattern;
    fill();
}

QString FileListBox::fileName() const { return listIndex() >= 0 ? list(listIndex()) : QString(); }

void FileListBox::fill()
{
    clearList();
    if (path_.isEmpty())
        return;
    // One pattern, or several joined by ";": a blank belongs to the name, as in "Quillon Names.mdb".
    QDir dir(path_, QString(), QDir::Name | QDir::IgnoreCase, QDir::Files | QDir::Hidden);
    dir.setNameFilters(pattern_.split(QLatin1Char(';'), Qt::SkipEmptyParts));
    for (const QString& name : dir.entryList()) {
        if (!name.startsWith(QLatin1Char('.')))
            addItem(name);
    }
}

} // namespace hb::ui
