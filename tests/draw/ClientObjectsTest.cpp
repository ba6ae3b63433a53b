#include "TnGraphics/draw/ClientObjects.h"

#include "tests/fakes/EngineTest.h"

#include "TnGraphics/draw/CKelError.h"

#include <array>
#include <gtest/gtest.h>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>

namespace tn::test {
namespace {

enum class Thrown { kNothing, kException, kExhaustedMemory, kKelError, kNumber };
constexpr std::array<Thrown, 4> kAnyThrown = {Thrown::kException, Thrown::kExhaustedMemory, Thrown::kKelError,
                                              Thrown::kNumber};

/// What the operations of the clients below throw.
Thrown toThrow = Thrown::kNothing;

void Do() {
    switch (toThrow) {
    case Thrown::kNothing:
        return;
    case Thrown::kException:
        throw std::runtime_error("no luck");
    case Thrown::kExhaustedMemory:
        throw std::bad_alloc();
    case Thrown::kKelError:
        throw CKelError(nullptr);
    case Thrown::kNumber:
        throw 1;
    }
}

class SomePort : public PortClient {
    void Damaged(const VecRect*) override { Do(); }
    void Released() override { Do(); }
};
class SomeGState : public GStatePortClient {
    void Changed() override { Do(); }
};
class SomeTile : public ImageTile {
    void Lock(VecBitmap*) override { Do(); }
    void Unlock() override { Do(); }
};
class SomeIterator : public ImageIterator {
    void Next(void**) override { Do(); }
    void Restart() override { Do(); }
};
class SomeProducer : public ImageProducer {
    void Bounds(VecRect*) override { Do(); }
    void Produce(const VecRect*, void**) override { Do(); }
};
class SomeEps : public EpsClient {
    void PlayEps(VecPort) override { Do(); }
};
class SomeController : public PrintDeviceController {
    void BeginPage(const VecRect*) override { Do(); }
    void EndPage() override { Do(); }
};
class SomeSegments : public LineSegmentClient {
    void Segment(const VecPoint*, const VecPoint*) override { Do(); }
};
class SomeConversion : public ColorConversionSegment {
    void Convert(const float*, float*, std::int32_t) override { Do(); }
};
class SomeStream : public Stream {
    void Read(void*, std::uint32_t, std::uint32_t*) override { Do(); }
    void Write(const void*, std::uint32_t) override { Do(); }
    void Seek(std::uint64_t) override { Do(); }
};
class SomeProgress : public Progress {
    void Report(std::uint32_t, std::uint32_t) override { Do(); }
};

/// The entry points' argument for a client: its address as the base that they know.
template <class Base> void* Handle(Base& client) { return &client; }

class ClientObjects : public EngineTest {
protected:
    ClientObjects() {
        EXPECT_TRUE(Start());
        engines.ForgetLog();
        toThrow = Thrown::kNothing;
    }

    /// What the error says that an entry point gave, which is released; "none" for null.
    std::string Taken(KelError error) {
        if (error == nullptr) {
            return "none";
        }
        const EngineObject* const object = engines.handles.Use("the engine", error, HandleKind::kError);
        EXPECT_EQ(object->component, "Kel");
        std::string message(object->message);
        engines.handles.Release("the engine", error, HandleKind::kError);
        return message;
    }

    /// What every entry point but that of EPS clients gives.
    Lines TakenFromEach() {
        SomePort port;
        SomeGState gstate;
        SomeTile tile;
        SomeIterator iterator;
        SomeProducer producer;
        SomeController controller;
        SomeSegments segments;
        SomeConversion conversion;
        SomeStream stream;
        SomeProgress progress;
        void* const portClient = Handle<PortClient>(port);
        void* const streamClient = Handle<Stream>(stream);
        return {Taken(kPortClientProcs.damaged(portClient, nullptr)),
                Taken(kPortClientProcs.released(portClient)),
                Taken(kGStatePortClientProcs.changed(Handle<GStatePortClient>(gstate))),
                Taken(kImageTileProcs.lock(Handle<ImageTile>(tile), nullptr)),
                Taken(kImageTileProcs.unlock(Handle<ImageTile>(tile))),
                Taken(kImageIteratorProcs.next(Handle<ImageIterator>(iterator), nullptr)),
                Taken(kImageIteratorProcs.restart(Handle<ImageIterator>(iterator))),
                Taken(kImageProducerProcs.bounds(Handle<ImageProducer>(producer), nullptr)),
                Taken(kImageProducerProcs.produce(Handle<ImageProducer>(producer), nullptr, nullptr)),
                Taken(kPrintDeviceControllerProcs.beginPage(Handle<PrintDeviceController>(controller), nullptr)),
                Taken(kPrintDeviceControllerProcs.endPage(Handle<PrintDeviceController>(controller))),
                Taken(kLineSegmentProcs.segment(Handle<LineSegmentClient>(segments), nullptr, nullptr)),
                Taken(kColorConversionSegmentProcs.convert(Handle<ColorConversionSegment>(conversion), nullptr, nullptr,
                                                           0)),
                Taken(kStreamProcs.read(streamClient, nullptr, 0, nullptr)),
                Taken(kStreamProcs.write(streamClient, nullptr, 0)),
                Taken(kStreamProcs.seek(streamClient, 0)),
                Taken(kProgressProcs.progress(Handle<Progress>(progress), 0, 0))};
    }

    std::string TakenFromEps() {
        SomeEps eps;
        return Taken(kEpsClientProcs.playEps(Handle<EpsClient>(eps), nullptr));
    }
};

constexpr std::size_t kEntryPoints = 17;

TEST_F(ClientObjects, GiveNoErrorWhenAllGoesWell) {
    EXPECT_EQ(TakenFromEach(), Lines(kEntryPoints, "none"));
    EXPECT_EQ(TakenFromEps(), "none");
    EXPECT_TRUE(engines.Log().empty());
}

TEST_F(ClientObjects, LetNoExceptionIntoTheEngine) {
    for (const Thrown thrown : kAnyThrown) {
        toThrow = thrown;
        EXPECT_EQ(TakenFromEach(), Lines(kEntryPoints, "unknown Kel error"));
    }
}

TEST_F(ClientObjects, TellThatTheirEpsFailed) {
    for (const Thrown thrown : kAnyThrown) {
        toThrow = thrown;
        EXPECT_EQ(TakenFromEps(), "client playEPS failed");
    }
}

TEST_F(ClientObjects, GiveTheErrorOfExhaustedMemoryWhenNoneCanBeMade) {
    toThrow = Thrown::kException;
    SomeStream stream;
    for (const auto making :
         {RecordingEngines::ErrorMaking::kGivesNull, RecordingEngines::ErrorMaking::kGivesOutOfMemory}) {
        engines.errorMaking = making;
        const KelError error = kStreamProcs.seek(Handle<Stream>(stream), 0);
        EXPECT_EQ(error, AsError(&engines.handles.CoreError(1)));
        engines.handles.Release("the engine", error, HandleKind::kError);
    }
}

TEST_F(ClientObjects, GetWhatTheEngineGives) {
    struct Recorder : Stream {
        void Read(void* bytes, std::uint32_t count, std::uint32_t* got) override {
            *static_cast<char*>(bytes) = 'x';
            *got = count - 1;
        }
        void Write(const void* bytes, std::uint32_t count) override {
            written.assign(static_cast<const char*>(bytes), count);
        }
        void Seek(std::uint64_t position) override { soughtAt = position; }

        std::string written;
        std::uint64_t soughtAt = 0;
    };
    Recorder recorder;
    char byte = 0;
    std::uint32_t got = 0;
    EXPECT_EQ(kStreamProcs.read(Handle<Stream>(recorder), &byte, 5, &got), nullptr);
    EXPECT_EQ(byte, 'x');
    EXPECT_EQ(got, 4U);
    EXPECT_EQ(kStreamProcs.write(Handle<Stream>(recorder), "text", 3), nullptr);
    EXPECT_EQ(recorder.written, "tex");
    EXPECT_EQ(kStreamProcs.seek(Handle<Stream>(recorder), 0x123456789ABU), nullptr);
    EXPECT_EQ(recorder.soughtAt, 0x123456789ABU);
}

TEST_F(ClientObjects, SayTheSameAfterTheBindingHasStopped) {
    toThrow = Thrown::kNumber;
    TheBinding().Stop();
    EXPECT_EQ(TakenFromEach(), Lines(kEntryPoints, "unknown Kel error"));
    EXPECT_EQ(TakenFromEps(), "client playEPS failed");
}

} // namespace
} // namespace tn::test
