// SPDX-License-Identifier: Apache-2.0
// Empty: stands for the target that precompiles what the tests include.
