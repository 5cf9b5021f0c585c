# Everyday commands. Each does all the set-up it needs; the work itself is in CMake presets and scripts.

.PHONY: help demo test test-asan build bench fuzz clean
.DEFAULT_GOAL := help

help: ## show the commands
	@sed -n 's/^\([a-z-]*\): .*## /\1\t/p' $(MAKEFILE_LIST) | expand -t 12

build: ## build out/linux/protcsv
	@scripts/build linux protcsv

demo: build ## write a sample database, export its logs to out/demo/ and show them
	@scripts/demo

test: ## build and run every test, then again under the sanitizers
	@scripts/build linux
	@scripts/test linux
	@$(MAKE) --no-print-directory test-asan

test-asan: ## build and run every test under the address and undefined-behaviour sanitizers
	@scripts/build linux-asan
	@scripts/test linux-asan

bench: build ## measure protcsv against script peers and the raw floor
	@scripts/bench

fuzz: ## run each fuzzer for SECONDS=30 seconds
	@scripts/fuzz run $(SECONDS)

clean: ## remove everything that was built
	@rm -rf out
