// Where the program's own files live: database, settings, fallback pictures, sounds.
#pragma once

#include <QString>

class ProgramFolder
{
public:
    // What decides the place, so that a test can say it.
    struct Surroundings {
        QString override;         // the environment variable MORVEX_HOME
        QString executableFolder; // the folder of the running executable
        QString userData;         // the user's own data folder of this program
        QString installedData;    // the read-only files of an installation
    };

    // The executable's own folder as long as it is writable or already holds a config.ini, so a copied folder
    // or a stick works as it stands; otherwise the user's data folder. MORVEX_HOME overrides both. A folder
    // without a config.ini is filled from the shipped files; what is already there is never replaced.
    explicit ProgramFolder(const Surroundings &surroundings);

    const QString &path() const { return path_; }

    // What is shipped and read where it was installed: of the program's folder, the executable's and the
    // installation's, the first that has it. Empty where none has.
    QString shipped(const QString &name) const;

    // What this process stands in. Where the installed files lie is said from the executable's folder.
    static Surroundings current(const QString &installedData);

private:
    Surroundings surroundings_;
    QString path_;
};

// Folder, separator and file name.
QString fileIn(const QString &folder, const QString &name);
