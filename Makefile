# Amorra: `make play` to play, `make test` to run every test.
BUILD ?= build
JOBS ?= 2
CMAKE_FLAGS ?=
PREFIX ?= /usr/local

GAME := $(BUILD)/src/app/amorra

.PHONY: all help play test build package install clean

all: build

help:
	@echo "make play          install what is missing, build (Release) and start the game"
	@echo "make test          install what is missing, build and run every test"
	@echo "make package       build the Debian package $(BUILD)/amorra_*.deb"
	@echo "make install       install under PREFIX (now $(PREFIX)); DESTDIR=... stages it"
	@echo "make clean         remove the build folder $(BUILD)"
	@echo "Also:              $(sort $(AREA_TARGETS))"
	@echo "Variables: BUILD=$(BUILD) JOBS=$(JOBS) CMAKE_FLAGS=..."

deps-%:
	@tools/install-deps.sh $*

$(BUILD)/CMakeCache.txt:
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=Release $(CMAKE_FLAGS)

build: deps-build $(BUILD)/CMakeCache.txt
	cmake --build $(BUILD) -j $(JOBS)

# Only the game is built. It makes the player's data folder
# (~/.local/share/amorra), seeds it and runs inside it, so no save file
# lands in the source or build tree.
play: deps-play $(BUILD)/CMakeCache.txt
	cmake --build $(BUILD) -j $(JOBS) --target amorra-game
	$(GAME)

# Configured again, so a build folder made before GoogleTest was installed
# (by make play, say) gets its tests.
test: deps-test deps-build
	cmake -S . -B $(BUILD) $(CMAKE_FLAGS) >/dev/null
	cmake --build $(BUILD) -j $(JOBS)
	cd $(BUILD) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j $(JOBS)

package: deps-package build
	cd $(BUILD) && cpack -G DEB
	@ls $(BUILD)/amorra_*.deb

install: build
	cmake --install $(BUILD) --prefix $(PREFIX)

clean:
	rm -rf $(BUILD)

# More targets (bench, lab, fuzz, soak, lint, test-sanitize...) come from
# tools/<area>/targets.mk, so each area keeps its own recipes.
AREA_MAKEFILES := $(sort $(wildcard tools/*/targets.mk))
AREA_TARGETS := $(shell sed -n 's/^\.PHONY: *//p' $(AREA_MAKEFILES) /dev/null)
-include $(AREA_MAKEFILES)
