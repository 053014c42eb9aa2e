# Amorra: `make play` to play, `make test` to run every test.
BUILD ?= build
JOBS ?= 2
CMAKE_FLAGS ?=

.PHONY: all play test build deps-build deps-test clean

all: build

deps-%:
	@tools/install-deps.sh $*

$(BUILD)/CMakeCache.txt:
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=Release $(CMAKE_FLAGS)

build: deps-build $(BUILD)/CMakeCache.txt
	cmake --build $(BUILD) -j $(JOBS)

play: deps-play build
	@echo "The game window is not there yet: the rules and their tests are."

test: deps-test deps-build $(BUILD)/CMakeCache.txt
	cmake --build $(BUILD) -j $(JOBS)
	cd $(BUILD) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j $(JOBS)

clean:
	rm -rf $(BUILD)
