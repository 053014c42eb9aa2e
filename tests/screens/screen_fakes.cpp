#include "screen_fakes.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace amorra::testing {

QStringList RecordingSoundPlayer::names() const
{
    QStringList out;
    for (const Played &p : played)
        out << QFileInfo(p.file).fileName();
    return out;
}

QWidget *findNamed(QWidget *root, const QString &accessibleName)
{
    if (!root)
        return nullptr;
    if (root->accessibleName() == accessibleName)
        return root;
    const QList<QWidget *> all = root->findChildren<QWidget *>();
    for (QWidget *w : all)
        if (w->accessibleName() == accessibleName)
            return w;
    return nullptr;
}

WorkingDir::WorkingDir()
    : m_previous(QDir::currentPath())
{
    QDir::setCurrent(m_dir.path());
}

WorkingDir::~WorkingDir()
{
    QDir::setCurrent(m_previous);
}

QByteArray WorkingDir::read(const QString &name) const
{
    QFile f(QDir(path()).filePath(name));
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

void WorkingDir::write(const QString &name, const QByteArray &bytes) const
{
    QFile f(QDir(path()).filePath(name));
    if (f.open(QIODevice::WriteOnly))
        f.write(bytes);
}

} // namespace amorra::testing
