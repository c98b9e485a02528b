// The sound and catalogue control, driven by dispatch ids as the program's family of controls is:
// property 5 is the path of the wave file it holds, property 1 takes a command (7 stops the wave,
// 6 plays it from its start), and method 24 opens a compiled help file in its registered viewer.
#pragma once

#include <QObject>
#include <QSoundEffect>
#include <QStringList>
#include <QVariant>
#include <map>
#include <memory>

class Tambour : public QObject {
    Q_OBJECT

public:
    QVariant propertyGet(int id) const;
    void propertyPut(int id, const QVariant &value);
    void invoke(int id, const QString &argument);

    // Loads a wave ahead of its first play, so that the first play starts at once.
    void preload(const QString &path);

    // The file names of the waves played, in order: what a test listens to.
    QStringList played;

private:
    QSoundEffect *effectFor(const QString &path);

    QString mPath;
    std::map<QString, std::unique_ptr<QSoundEffect>> mEffects;
};
