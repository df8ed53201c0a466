// What stands between a file that was written and its place on the disk.
#pragma once

class QFileDevice;
class QString;

// Waits until the system has handed everything of that open file to the disk. False where the disk refused
// it; true as well where the file system has no such service.
bool isOnTheDisk(const QFileDevice &file);

// Waits, half a second at most, while somebody keeps the file of that path from being replaced by another: one system
// lets nobody replace a file that is open, and what looks files over there opens each new one for a moment.
void waitForReaders(const QString &path);
