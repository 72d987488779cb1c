// kvhost_describe: prints docs/object-properties.md.
#include <cstdio>

#include "refhost/automation/PropertyDocumentation.h"

int main() {
    return std::fputs(kvhost::ObjectPropertiesPage().c_str(), stdout) < 0 ? 1 : 0;
}
