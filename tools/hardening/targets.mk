# Hardening targets, included from the top-level Makefile.
SAN_BUILD ?= build-sanitize
FUZZ_SECONDS ?= 60
SOAK_CLICKS ?= 1000000

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

soak: build
	$(BUILD)/tests/hardening/soak $(SOAK_CLICKS)

lint: deps-lint deps-build
	tools/hardening/lint.sh
