# Hardening targets, included from the top-level Makefile.
SAN_BUILD ?= build-sanitize
FUZZ_SECONDS ?= 60
SOAK_GAMES ?= 100000
SOAK_SEED ?= 1

.PHONY: test-sanitize fuzz soak lint

# The whole suite under AddressSanitizer and UndefinedBehaviorSanitizer.
test-sanitize: deps-test deps-build
	cmake -S . -B $(SAN_BUILD) -DCMAKE_BUILD_TYPE=Debug -DAMORRA_SANITIZE=ON
	cmake --build $(SAN_BUILD) -j $(JOBS)
	cd $(SAN_BUILD) && QT_QPA_PLATFORM=offscreen \
	  ASAN_OPTIONS=detect_leaks=1:abort_on_error=1:strict_string_checks=1 \
	  LSAN_OPTIONS=suppressions=$(CURDIR)/tools/hardening/lsan.supp:print_suppressions=0 \
	  UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
	  ctest --output-on-failure -j $(JOBS) -E '^install'

fuzz: deps-fuzz
	tools/hardening/fuzz.sh $(FUZZ_SECONDS)

# Whole games by the balance lab's scripted players, the random clicker among
# them, on the game's own handlers: fails if any game is left without an end
# screen (a window whose OK does not give the main screen back, a dead end).
soak: build
	$(BUILD)/tools/lab/amorra-lab --games $(SOAK_GAMES) --seed $(SOAK_SEED) --csv $(BUILD)/soak.csv
	@stuck=$$(grep -c ',stuck,' $(BUILD)/soak.csv); echo "soak: $$stuck games stuck"; test "$$stuck" -eq 0

lint: deps-lint deps-build
	tools/hardening/lint.sh
