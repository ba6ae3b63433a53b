// The objects of the recording engines: errors, colours and ports, with the references that are held to them.
#pragma once

#include "tests/fakes/QuietText.h"

#include "TnEngines/abi/huex_procedures.h"
#include "TnEngines/abi/kel.h"
#include "TnEngines/abi/vec_procedures.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace tn::test {

enum class HandleKind { kError, kCoreError, kColor, kPort, kGState };

/// What a handle of any kind points to. It stays readable after its last reference is gone.
struct EngineObject {
    HandleKind kind = HandleKind::kError;
    int serial = 0; ///< From 1 among those of its kind; the number of a core error.
    int references = 0;

    // An error
    QuietString message;
    QuietString component;
    std::int32_t number = 0;

    // A colour
    HuexColorSpace space = 0;
    std::array<float, 4> colorComponents = {};

    // A port
    VecBitmap bitmap = {};
    EngineObject* gstate = nullptr;
    EngineObject* lastError = nullptr; ///< The port holds a reference to it.
    EngineObject* owner = nullptr;     ///< The port of a graphics state, which lives as long as it.

    /// Core errors live for ever.
    bool IsAlive() const;
};

/// Every object that the engines made. Odd uses of them fail the test.
class EngineHandles {
public:
    EngineHandles();
    ~EngineHandles();
    EngineHandles(const EngineHandles&) = delete;
    EngineHandles& operator=(const EngineHandles&) = delete;

    /// A new object with one reference.
    EngineObject& Make(HandleKind kind);

    EngineObject& CoreError(std::int32_t number) { return *coreErrors_[static_cast<std::size_t>(number)]; }

    /// The living object behind a handle; null for a null handle and, as a failure of the test, for any other.
    EngineObject* Use(const char* procedure, const void* handle, HandleKind kind);

    void AddReference(const char* procedure, const void* handle, HandleKind kind);
    void Release(const char* procedure, const void* handle, HandleKind kind);

    /// "error#1", "core#0", "color#2", "port#1", "gstate#1", "null", or "unknown".
    QuietString NameOf(const void* handle) const;

    /// How many references are held; for a core error, how many more were added than released.
    int ReferencesTo(const void* handle) const;

    /// The objects to which references are left, for example "error#1: 2".
    std::vector<std::string> Unbalanced() const;

private:
    EngineObject* Find(const void* handle) const;
    void Drop(EngineObject& object);

    QuietVector<EngineObject*> objects_;
    std::array<EngineObject*, 2> coreErrors_ = {};
};

/// The types of errors and core errors are the same to who uses them.
inline bool IsOfKind(const EngineObject& object, HandleKind kind) {
    return object.kind == kind || (kind == HandleKind::kError && object.kind == HandleKind::kCoreError) ||
           (kind == HandleKind::kPort && object.kind == HandleKind::kGState);
}

inline KelError AsError(EngineObject* object) { return reinterpret_cast<KelError>(object); }
inline HuexColor AsColor(EngineObject* object) { return reinterpret_cast<HuexColor>(object); }
inline VecPort AsPort(EngineObject* object) { return reinterpret_cast<VecPort>(object); }

} // namespace tn::test
