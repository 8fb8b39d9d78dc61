"""Tests of the client against a scripted, misbehaving workstation."""
