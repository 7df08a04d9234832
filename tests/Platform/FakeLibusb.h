// SPDX-License-Identifier: MIT
// The calls of libusb that the host makes, with one scripted device. Counts objects that were not
// given back; use after the library's end aborts the test.
#pragma once
#include <atomic>
#include <chrono>
#include <deque>
#include <libusb-1.0/libusb.h>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

// The end of a transfer: at the next look at events, or never.
struct FakeEnd {
    libusb_transfer_status status = LIBUSB_TRANSFER_COMPLETED;
    std::string bytes; // received
    std::optional<int> moved; // replaces the number of bytes requested or received
    bool never = false;
};

class FakeLibusb {
public:
    FakeLibusb();
    ~FakeLibusb();
    FakeLibusb(const FakeLibusb&) = delete;
    FakeLibusb& operator=(const FakeLibusb&) = delete;
    static FakeLibusb& current();

    // The library's results.
    int initResult = 0;
    int listResult = 1; // devices
    int recordResult = 0;
    int configurationResult = 0;
    int openResult = 0;
    int claimResult = 0;
    bool driverActive = false; // the kernel's, until a claim
    int eventsResult = 0;
    int submitResult = 0;
    bool cancels = true;
    std::deque<std::string> oldAnswers; // ready to be read when the interface is claimed
    bool repeatsOldAnswer = false; // the first of them, forever
    unsigned haltedPipe = 0; // an endpoint's address, until its halt is cleared
    std::deque<FakeEnd> ends; // when empty: never
    std::optional<std::string> reply; // to a control request
    std::vector<std::optional<std::string>> texts; // by index; 0 is never requested

    // Descriptors.
    libusb_device_descriptor record{};
    std::vector<libusb_endpoint_descriptor> endpoints;
    std::vector<libusb_interface_descriptor> settings;
    libusb_interface interface {
    };
    libusb_config_descriptor configuration{};
    void describe(); // makes them point to each other

    // Objects in use, and the calls.
    int contexts = 0;
    int references = 0;
    int handles = 0;
    int configurations = 0;
    int transfers = 0;
    int inFlight() { return static_cast<int>(m_inFlight.size()); }
    int claims = 0;
    int attachedAgain = 0;
    bool autoDetach = false;
    std::vector<unsigned> haltsCleared;
    std::vector<unsigned> timeouts; // of control requests
    std::vector<std::string> written;
    std::vector<int> readSizes; // bytes asked of the bus
    std::chrono::microseconds waited{0}; // for events

    // For the library's calls themselves.
    int submit(libusb_transfer* transfer);
    int cancel(libusb_transfer* transfer);
    int handleEvents(const timeval& limit, int* completed);
    void forget(const libusb_device_handle* handle);

private:
    struct Flight {
        libusb_transfer* transfer;
        FakeEnd end;
    };
    std::mutex m_mutex;
    std::vector<Flight> m_inFlight;
};
