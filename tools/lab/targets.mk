# The balance lab and the benchmarks; included by the top-level Makefile and
# run from the repository root.
BUILD ?= build
JOBS ?= 2
LAB_ARGS ?= --games 10000 --seed 1 --plot $(BUILD)/lab-scores.svg

.PHONY: lab bench

# `make lab LAB_ARGS="--games 50000 --luck 100 --looks 50 --smart 0"` for other runs.
lab: $(BUILD)/CMakeCache.txt
	cmake --build $(BUILD) -j $(JOBS) --target amorra-lab
	$(BUILD)/tools/lab/amorra-lab $(LAB_ARGS)
	@echo "Score distributions: $(BUILD)/lab-scores.svg"

# Handler times, lab throughput, start-up, memory and click-to-repaint.
bench: $(BUILD)/CMakeCache.txt
	JOBS=$(JOBS) tools/bench/run.sh $(BUILD)
