vantro_room(vantro_delivery
  SOURCES
    PasteChords.cpp PasteChords.h
    PasteDelivery.cpp PasteDelivery.h
  LINK vantro_base vantro_platform Qt6::Core QCoro6::Core)
