// Whether files can be made in a folder by whoever runs the program.
#pragma once

class QString;

bool isWritableFolder(const QString &path);
