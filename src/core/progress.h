#pragma once

namespace skerrow {

// How a long operation tells how far it is and learns that it should stop. Each call is also the
// point at which the user interface may serve its events.
class Progress {
 public:
  virtual ~Progress() = default;

  // `percent` of the work is done, 0 to 100. False when the user wants the operation to stop.
  virtual bool Step(double percent) = 0;
};

// For callers that show nothing.
class NoProgress final : public Progress {
 public:
  bool Step(double) override { return true; }
};

}  // namespace skerrow
