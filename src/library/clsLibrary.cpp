#include "library/clsLibrary.h"

clsLibrary& clsLibrary::instance()
{
    static clsLibrary library;
    return library;
}
