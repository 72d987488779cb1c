#include "refhost/automation/LiveObject.h"

namespace kvhost {

namespace {

long g_count = 0;

}  // namespace

long LiveObject::Count() {
    return g_count;
}

LiveObject::LiveObject() {
    ++g_count;
}

LiveObject::~LiveObject() {
    --g_count;
}

}  // namespace kvhost
