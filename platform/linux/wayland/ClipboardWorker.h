#pragma once

#include "platform/linux/wayland/ClipboardContents.h"
#include "platform/linux/wayland/ClipboardTransfers.h"
#include "platform/linux/wayland/WaylandConnection.h"

#include <array>
#include <chrono>
#include <memory>
#include <optional>
#include <vector>

struct zwlr_data_control_device_v1;
struct zwlr_data_control_manager_v1;
struct zwlr_data_control_offer_v1;
struct zwlr_data_control_source_v1;

namespace vantro {

/// The part of ClipboardService that lives on its thread. See there.
class ClipboardWorker
{
public:
    using Selection = Pasteboard::Selection;

    ClipboardWorker();
    ~ClipboardWorker();
    ClipboardWorker(const ClipboardWorker&) = delete;
    ClipboardWorker& operator=(const ClipboardWorker&) = delete;

    [[nodiscard]] bool isOffered() const { return device_ != nullptr; }
    [[nodiscard]] bool isOpen() const { return connection_.isOpen(); }
    /// Handles what comes until @p wake is readable.
    void handleUntil(int wake);

    void own(Selection selection, std::shared_ptr<const ClipboardContents> contents);
    void disown(Selection selection);
    [[nodiscard]] bool isOwner(Selection selection) { return of(selection).source != nullptr; }
    [[nodiscard]] std::optional<QByteArray> text(Selection selection);
    [[nodiscard]] bool isSecret(Selection selection);
    void fetchContents(Selection selection);
    [[nodiscard]] std::shared_ptr<const ClipboardContents> contents(Selection selection);
    [[nodiscard]] bool wasFetched(Selection selection) { return of(selection).fetches > 0; }
    void forgetFetches();

private:
    struct Offered
    {
        zwlr_data_control_offer_v1* offer = nullptr;
        std::vector<QByteArray> mimeTypes;
    };
    struct State
    {
        Offered offered; ///< by whoever owns the selection
        zwlr_data_control_source_v1* source = nullptr;
        std::shared_ptr<const ClipboardContents> ours;
        int fetches = 0;
        std::shared_ptr<const ClipboardContents> fetched;
        zwlr_data_control_offer_v1* fetchedFrom = nullptr;
    };
    struct Callbacks;

    [[nodiscard]] State& of(Selection selection) { return states_.at(selection == Selection::Clipboard ? 0 : 1); }
    [[nodiscard]] State* ofSource(const zwlr_data_control_source_v1* source);
    void adopt(State& state, zwlr_data_control_offer_v1* offer);
    void give(Selection selection, zwlr_data_control_source_v1* source);
    void send(zwlr_data_control_source_v1* source, const QByteArray& mimeType, int descriptor);
    [[nodiscard]] std::optional<QByteArray> fetch(zwlr_data_control_offer_v1* offer, const QByteArray& mimeType,
                                                  std::chrono::steady_clock::time_point giveUp, qsizetype most);
    [[nodiscard]] std::shared_ptr<const ClipboardContents> fetchAll(const Offered& offered,
                                                                    std::chrono::milliseconds limit);

    WaylandConnection connection_{WaylandConnection::Events::byOwner};
    zwlr_data_control_manager_v1* manager_ = nullptr;
    zwlr_data_control_device_v1* device_ = nullptr;
    std::vector<Offered> introduced_; ///< not yet said for which selection
    std::array<State, 2> states_;
    ClipboardTransfers transfers_;
};

} // namespace vantro
