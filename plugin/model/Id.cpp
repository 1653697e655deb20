#include "model/Id.h"

quint64 nextId()
{
    static quint64 s_last = 0;
    return ++s_last;
}
