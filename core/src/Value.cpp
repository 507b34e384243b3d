// implementation in progress
