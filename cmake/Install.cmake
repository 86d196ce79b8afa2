install(DIRECTORY include/vskcore DESTINATION include COMPONENT dev)
