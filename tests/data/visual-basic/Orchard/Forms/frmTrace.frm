VERSION 5.00
Begin VB.Form frmTrace 
   BorderStyle     =   3  'Fixed Dialog
   Caption         =   "Where is Bin No. ?"
   ClientHeight    =   4370
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   6180
   HelpContextID   =   1022
   LinkTopic       =   "Form1"
   ScaleHeight     =   4200
   StartUpPosition =   1  'CenterOwner
End
Attribute VB_Name = "frmTrace"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

