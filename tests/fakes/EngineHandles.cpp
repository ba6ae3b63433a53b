#include "tests/fakes/EngineHandles.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <utility>

namespace tn::test {
namespace {

const char* NameOf(HandleKind kind) {
    switch (kind) {
    case HandleKind::kError:
        return "error";
    case HandleKind::kCoreError:
        return "core";
    case HandleKind::kColor:
        return "color";
    case HandleKind::kPort:
        return "port";
    case HandleKind::kGState:
        return "gstate";
    }
    return "unknown";
}

QuietString NameOf(const EngineObject& object) {
    return QuietString(NameOf(object.kind)) + "#" + QuietString(std::to_string(object.serial));
}

} // namespace

bool EngineObject::IsAlive() const {
    return kind == HandleKind::kCoreError || (owner == nullptr ? references > 0 : owner->IsAlive());
}

EngineHandles::EngineHandles() {
    for (int number = 0; number < 2; ++number) {
        EngineObject& error = Make(HandleKind::kCoreError);
        error.serial = number;
        error.references = 0;
        error.component = "QMZ";
        error.number = number;
        error.message = number == 0 ? "no fault" : "out of memory";
        coreErrors_[static_cast<std::size_t>(number)] = &error;
    }
}

EngineHandles::~EngineHandles() {
    for (EngineObject* const object : objects_) {
        object->~EngineObject();
        QuietAllocator<EngineObject>().deallocate(object, 1);
    }
}

EngineObject& EngineHandles::Make(HandleKind kind) {
    auto* const object = new (QuietAllocator<EngineObject>().allocate(1)) EngineObject;
    object->kind = kind;
    object->serial =
        1 + static_cast<int>(std::ranges::count_if(objects_, [=](const auto* other) { return other->kind == kind; }));
    object->references = 1;
    objects_.push_back(object);
    return *object;
}

EngineObject* EngineHandles::Find(const void* handle) const {
    const auto found = std::ranges::find(objects_, handle);
    return found == objects_.end() ? nullptr : *found;
}

EngineObject* EngineHandles::Use(const char* procedure, const void* handle, HandleKind kind) {
    if (handle == nullptr) {
        return nullptr;
    }
    EngineObject* const object = Find(handle);
    if (object == nullptr) {
        ADD_FAILURE() << procedure << " is given a handle that nobody made";
        return nullptr;
    }
    if (!IsOfKind(*object, kind)) {
        ADD_FAILURE() << procedure << " is given " << NameOf(handle) << " instead of a handle of the kind "
                      << test::NameOf(kind);
        return nullptr;
    }
    if (!object->IsAlive()) {
        ADD_FAILURE() << procedure << " is given " << NameOf(handle) << " after its last reference was released";
        return nullptr;
    }
    return object;
}

void EngineHandles::AddReference(const char* procedure, const void* handle, HandleKind kind) {
    if (EngineObject* const object = Use(procedure, handle, kind)) {
        ++object->references;
    }
}

void EngineHandles::Release(const char* procedure, const void* handle, HandleKind kind) {
    if (EngineObject* const object = Use(procedure, handle, kind)) {
        Drop(*object);
    }
}

void EngineHandles::Drop(EngineObject& object) {
    if (--object.references == 0 && object.lastError != nullptr) {
        Release("the end of a port", std::exchange(object.lastError, nullptr), HandleKind::kError);
    }
}

QuietString EngineHandles::NameOf(const void* handle) const {
    const EngineObject* const object = Find(handle);
    return object != nullptr ? test::NameOf(*object) : handle == nullptr ? "null" : "unknown";
}

int EngineHandles::ReferencesTo(const void* handle) const {
    const EngineObject* const object = Find(handle);
    return object == nullptr ? 0 : object->references;
}

std::vector<std::string> EngineHandles::Unbalanced() const {
    std::vector<std::string> names;
    for (const EngineObject* const object : objects_) {
        if (object->owner == nullptr && object->references != 0) {
            names.push_back(std::string(test::NameOf(*object)) + ": " + std::to_string(object->references));
        }
    }
    return names;
}

} // namespace tn::test
