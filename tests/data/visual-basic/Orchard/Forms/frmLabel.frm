VERSION 5.00
Begin VB.Form frmLabel 
   BorderStyle     =   3  'Fixed Dialog
   Caption         =   "Label *Layout*"
   ClientHeight    =   2615
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   6180
   LinkTopic       =   "Form1"
   ScaleHeight     =   4200
   StartUpPosition =   1  'CenterOwner
End
Attribute VB_Name = "frmLabel"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

