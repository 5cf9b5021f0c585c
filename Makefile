# Everyday commands. Each does all the set-up it needs; the work itself is in CMake presets and scripts.

.PHONY: help check demo test test-asan test-threads test-windows build build-linux reproducible bench screenshots fuzz clean
.DEFAULT_GOAL := help

help: ## show the commands
	@sed -n 's/^\([a-z-]*\): .*## /\1\t/p' $(MAKEFILE_LIST) | expand -t 16

build: build-linux ## build the programs and the automation server for Linux and Windows into out/
	@scripts/build win64 products
	@scripts/build win32 products
	@stat --printf 'out/linux/protcsv: %s bytes, stripped\n' out/linux/protcsv

build-linux: ## build out/linux/protcsv alone
	@scripts/build linux products

demo: build-linux ## write a sample database, export its logs to out/demo/ and show them
	@scripts/demo

check: ## hold every source against clang-format and clang-tidy; what has not changed is not analysed again
	@scripts/check

test: ## build and run every test: the Linux program, the rest under the sanitizers, and for Windows under Wine
	@scripts/build linux program_tests
	@scripts/test linux -L 'golden|terminal|products|documents|faults'
	@scripts/test linux -R '^(Sample|Architecture|ErrorExits|Names)'
	@$(MAKE) --no-print-directory test-asan
	@$(MAKE) --no-print-directory test-threads
	@$(MAKE) --no-print-directory test-windows

test-asan: ## build and run the tests under the address and undefined-behaviour sanitizers
	@scripts/build linux-asan
	@scripts/test linux-asan

test-threads: ## build what has a thread under the thread sanitizer and run its tests
	@scripts/build linux-tsan threads_test
	@out/build/linux-tsan/tests/threads_test --gtest_brief=1

test-windows: ## build for Windows and run the tests of that build under Wine; says what was skipped and why
	@scripts/test-windows

reproducible: ## build the programs and the server twice, from two folders, and compare the bytes
	@scripts/reproducible

bench: build-linux ## measure protcsv against the raw floor, up to five million rows; an hour or more
	@scripts/bench

screenshots: ## photograph the dialogs and terminal forms into docs/bilder/
	@scripts/screenshots

fuzz: ## run each fuzzer for SECONDS=30 seconds
	@scripts/fuzz run $(SECONDS)

clean: ## remove everything that was built
	@rm -rf out
