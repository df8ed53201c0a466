// What was written is on the disk itself, and survives a power cut.
#pragma once

class QFileDevice;

// Waits until the system has handed everything of that open file to the disk. False where the disk refused
// it; true as well where the file system has no such service.
bool isOnTheDisk(const QFileDevice &file);
