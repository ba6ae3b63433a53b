// Private: a port of the vector engine in the library's hands.
#pragma once

#include "TnEngines/abi/vec_procedures.h"
#include "TnGraphics/draw/Binding.h"
#include "TnGraphics/draw/ClientRecords.h"

#include <array>

namespace tn {

/// Holds a reference to a port, until it ends, is given away or the binding stops.
class EnginePort final : public SharedObject {
public:
    /// Makes a port over a bitmap. Null when the engine makes none.
    /// \throws CKelError, std::bad_alloc
    static EnginePort* New(const VecBitmap& bitmap);

    ~EnginePort() override;

    /// False once the binding has stopped.
    bool IsAlive() const { return port_ != nullptr; }

    /// Calls one of the procedures that every port has.
    /// \throws CKelError "Missing Interface"
    template <class Type, class... Arguments> auto Call(abi::Port place, Arguments... arguments) const {
        return Procedure<Type>(place)(port_, arguments...);
    }

    /// \throws CKelError "Missing Interface"; std::bad_alloc where there is no memory for the colour
    template <std::size_t count> void SetColor(HuexColorSpace space, const std::array<float, count>& components) const {
        SetColor(space, components.data(), static_cast<std::int32_t>(count));
    }

    /// Does nothing where the port offers no graphics state.
    void SetMatrix(const VecMatrix& matrix) const;

    /// Leaves the port to the end of the binding.
    void Abandon() { isAbandoned_ = true; }

    void GiveUp() noexcept override;

private:
    explicit EnginePort(VecPort port) noexcept : SharedObject(SharedKind::kPort), port_(port) {}

    template <class Type> static Type Procedure(abi::Port place) { return reinterpret_cast<Type>(ProcedureAt(place)); }
    static void* ProcedureAt(abi::Port place);

    void SetColor(HuexColorSpace space, const float* components, std::int32_t count) const;
    void Release() noexcept;

    VecPort port_;
    bool isAbandoned_ = false;
};

} // namespace tn
