#pragma once

class QMutex;

/// Stands where a scoped lock would, and locks nothing: it takes neither argument, keeps neither, and releases nothing
/// when it goes. It is inert on purpose. No operation of this library is serialised, and who shares an object between
/// threads locks it by other means.
class VX_AutoLock {
public:
    VX_AutoLock(QMutex *, char const *) {}
};
