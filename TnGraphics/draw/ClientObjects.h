// Private: objects that the library implements for the engines.
//
// Each kind is a class whose operations the engines reach through a table of entry points. None of these lets an
// exception out: whatever is thrown becomes an error of the runtime.
#pragma once

#include "TnEngines/abi/clients.h"
#include "TnGraphics/draw/ClientRecords.h"

#include <cstdint>

namespace tn {

/// What errors say that were exceptions.
inline constexpr const char* kUnknownFailure = "unknown Kel error";
inline constexpr const char* kEpsFailure = "client playEPS failed";

/// The error for an exception, which the engine is to release. Null only without a runtime.
KelError ErrorForException(const char* message) noexcept;

/// Does the work, whose exceptions become errors with the message.
template <class Work> KelError Guarded(const char* message, const Work& work) noexcept {
    try {
        work();
        return nullptr;
    } catch (...) {
        return ErrorForException(message);
    }
}

/// The entry point of an operation.
template <auto operation, const char* const& message> struct EntryPoint;
template <class Client, class... Arguments, void (Client::*operation)(Arguments...), const char* const& message>
struct EntryPoint<operation, message> {
    static KelError Call(void* client, Arguments... arguments) noexcept {
        return Guarded(message, [&] { (static_cast<Client*>(client)->*operation)(arguments...); });
    }
};
template <auto operation, const char* const& message = kUnknownFailure>
inline constexpr auto kEntryPoint = &EntryPoint<operation, message>::Call;

/// Base of all kinds. Once it is given up, nobody may ask it any more.
template <SharedKind kind> class ClientObject : public SharedObject {
public:
    void GiveUp() noexcept override {}

protected:
    ClientObject() : SharedObject(kind) {}
};

class PortClient : public ClientObject<SharedKind::kPort> {
public:
    virtual void Damaged(const VecRect* area) = 0;
    virtual void Released() = 0;
};
inline constexpr VecPortClientProcs kPortClientProcs = {kEntryPoint<&PortClient::Damaged>,
                                                        kEntryPoint<&PortClient::Released>};

class GStatePortClient : public ClientObject<SharedKind::kGStatePort> {
public:
    virtual void Changed() = 0;
};
inline constexpr VecGStatePortClientProcs kGStatePortClientProcs = {kEntryPoint<&GStatePortClient::Changed>};

class ImageTile : public ClientObject<SharedKind::kImageTile> {
public:
    virtual void Lock(VecBitmap* bitmap) = 0;
    virtual void Unlock() = 0;
};
inline constexpr VecImageTileProcs kImageTileProcs = {kEntryPoint<&ImageTile::Lock>, kEntryPoint<&ImageTile::Unlock>};

class ImageIterator : public ClientObject<SharedKind::kImageIterator> {
public:
    virtual void Next(void** tile) = 0;
    virtual void Restart() = 0;
};
inline constexpr VecImageIteratorProcs kImageIteratorProcs = {kEntryPoint<&ImageIterator::Next>,
                                                              kEntryPoint<&ImageIterator::Restart>};

class ImageProducer : public ClientObject<SharedKind::kImageProducer> {
public:
    virtual void Bounds(VecRect* bounds) = 0;
    virtual void Produce(const VecRect* area, void** tile) = 0;
};
inline constexpr VecImageProducerProcs kImageProducerProcs = {kEntryPoint<&ImageProducer::Bounds>,
                                                              kEntryPoint<&ImageProducer::Produce>};

class EpsClient : public ClientObject<SharedKind::kEpsClient> {
public:
    virtual void PlayEps(VecPort port) = 0;
};
inline constexpr VecEpsClientProcs kEpsClientProcs = {kEntryPoint<&EpsClient::PlayEps, kEpsFailure>};

class PrintDeviceController : public ClientObject<SharedKind::kPrintDeviceController> {
public:
    virtual void BeginPage(const VecRect* page) = 0;
    virtual void EndPage() = 0;
};
inline constexpr VecPrintDeviceControllerProcs kPrintDeviceControllerProcs = {
    kEntryPoint<&PrintDeviceController::BeginPage>, kEntryPoint<&PrintDeviceController::EndPage>};

class LineSegmentClient : public ClientObject<SharedKind::kLineSegment> {
public:
    virtual void Segment(const VecPoint* from, const VecPoint* to) = 0;
};
inline constexpr VecLineSegmentProcs kLineSegmentProcs = {kEntryPoint<&LineSegmentClient::Segment>};

class ColorConversionSegment : public ClientObject<SharedKind::kColorConversionSegment> {
public:
    virtual void Convert(const float* from, float* to, std::int32_t count) = 0;
};
inline constexpr HuexConversionSegmentProcs kColorConversionSegmentProcs = {
    kEntryPoint<&ColorConversionSegment::Convert>};

class Stream : public ClientObject<SharedKind::kStream> {
public:
    virtual void Read(void* bytes, std::uint32_t count, std::uint32_t* got) = 0;
    virtual void Write(const void* bytes, std::uint32_t count) = 0;
    virtual void Seek(std::uint64_t position) = 0;
};
inline constexpr KelStreamProcs kStreamProcs = {kEntryPoint<&Stream::Read>, kEntryPoint<&Stream::Write>,
                                                kEntryPoint<&Stream::Seek>};

/// Follows work on a stream or an image, so it is given up with the streams.
class Progress : public ClientObject<SharedKind::kStream> {
public:
    virtual void Report(std::uint32_t done, std::uint32_t total) = 0;
};
inline constexpr KelProgressProcs kProgressProcs = {kEntryPoint<&Progress::Report>};

} // namespace tn
