// Private: what the library shares with the engines while the binding is started, and who ends that.
#pragma once

#include <array>

namespace tn {

/// The kinds of objects that the library gives to the engines.
enum class SharedKind {
    kPort,
    kGStatePort,
    kImageIterator,
    kImageProducer,
    kImageTile,
    kEpsClient,
    kPrintDeviceController,
    kLineSegment,
    kColorConversionSegment,
    kStream
};
inline constexpr int kSharedKinds = 10;

/// Procedures that run when the binding starts and when it stops.
struct ClientRecord {
    const char* name;
    bool (*start)(); ///< False, or an exception, fails the binding's start.
    void (*stop)();
};

/// One for each kind of shared object. When the binding stops, those objects that are still shared are given up.
extern const std::array<ClientRecord, kSharedKinds> kSharedKindRecords;

/// Base of what is shared. It may outlive the sharing.
class SharedObject {
public:
    SharedObject(const SharedObject&) = delete;
    SharedObject& operator=(const SharedObject&) = delete;

    /// Ends the sharing because the binding stops.
    virtual void GiveUp() noexcept = 0;

protected:
    explicit SharedObject(SharedKind kind) noexcept;
    virtual ~SharedObject();

private:
    friend void GiveUpAll(SharedKind kind) noexcept;

    void Unlink() noexcept;

    SharedObject* next_;
    SharedObject** previousNext_; // null once it is in no list
};

/// Gives up every shared object of a kind.
void GiveUpAll(SharedKind kind) noexcept;

} // namespace tn
