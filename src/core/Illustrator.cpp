// The one Illustrator object.
#include "core/Illustrator.h"

#include <memory>

#include "plugin/CurrentDocument.h"

namespace kzo::core {

namespace {

std::unique_ptr<Illustrator> theInstance;

} // namespace

Illustrator* Illustrator::instance() {
    if (!theInstance) theInstance.reset(new Illustrator);
    return theInstance.get();
}

void Illustrator::__destroy() { theInstance.reset(); }

CurrentDocument* Illustrator::currentDocument() {
    return plugin::CurrentDocument().exists() ? &currentDocument_ : nullptr;
}

} // namespace kzo::core
